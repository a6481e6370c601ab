#include "xlsx/reader_sheet_part.h"

#include <condition_variable>
#include <deque>
#include <exception>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "xlsx/reader_sheet.h"
#include "xlsx/zip_input.h"

namespace orv {
namespace {

// Pieces waiting between the inflating thread and the scanner. A few are enough to ride out the
// unevenness of either side; more would only hold memory.
constexpr std::size_t kQueueDepth = 4;

class PieceQueue {
 public:
  // Producer side: waits for room, then queues a copy of `piece`; once the scanner has given up,
  // pieces are dropped so that the inflating can still run to its end.
  void push(std::string_view piece) {
    std::unique_lock lock(mutex_);
    roomOrAbandoned_.wait(lock, [this] { return abandoned_ || pieces_.size() < kQueueDepth; });
    if (abandoned_) return;
    std::string buffer;
    if (!spare_.empty()) {
      buffer = std::move(spare_.back());
      spare_.pop_back();
    }
    buffer.assign(piece);
    pieces_.push_back(std::move(buffer));
    pieceOrEnd_.notify_one();
  }
  void close(bool found, std::exception_ptr error) {
    std::lock_guard lock(mutex_);
    closed_ = true;
    found_ = found;
    error_ = std::move(error);
    pieceOrEnd_.notify_one();
  }

  // Scanner side: the next piece, or false once the producer has closed and all are taken.
  bool pop(std::string& piece) {
    std::unique_lock lock(mutex_);
    pieceOrEnd_.wait(lock, [this] { return closed_ || !pieces_.empty(); });
    if (!piece.empty() || piece.capacity() != 0) spare_.push_back(std::move(piece));
    if (pieces_.empty()) return false;
    piece = std::move(pieces_.front());
    pieces_.pop_front();
    roomOrAbandoned_.notify_one();
    return true;
  }
  void abandon() {
    std::lock_guard lock(mutex_);
    abandoned_ = true;
    pieces_.clear();
    roomOrAbandoned_.notify_one();
  }

  // After the producer has been joined.
  bool found() const { return found_; }
  std::exception_ptr error() const { return error_; }

 private:
  std::mutex mutex_;
  std::condition_variable roomOrAbandoned_;
  std::condition_variable pieceOrEnd_;
  std::deque<std::string> pieces_;
  std::vector<std::string> spare_;
  bool closed_ = false;
  bool abandoned_ = false;
  bool found_ = false;
  std::exception_ptr error_;
};

// Joins the producer on every way out of the scanning, exceptions included.
class Joining {
 public:
  explicit Joining(std::thread& thread) : thread_(thread) {}
  Joining(const Joining&) = delete;
  Joining& operator=(const Joining&) = delete;
  ~Joining() {
    if (thread_.joinable()) thread_.join();
  }

 private:
  std::thread& thread_;
};

}  // namespace

bool readSheetPart(ZipInput& zip, std::string_view part, InMemoryWorksheet& sheet, const SheetReadOptions& options) {
  if (!zip.contains(part)) return false;
  PieceQueue queue;
  std::thread producer([&zip, &queue, part] {
    try {
      const bool found = zip.readPieces(part, [&queue](std::string_view piece, std::uint64_t) { queue.push(piece); });
      queue.close(found, nullptr);
    } catch (...) {
      queue.close(false, std::current_exception());
    }
  });
  Joining joining(producer);

  std::exception_ptr scanError;
  SheetXmlStream stream(sheet, options);
  std::string piece;
  try {
    while (queue.pop(piece)) {
      stream.feed(piece);
      if (options.pieceScanned) options.pieceScanned(piece.size());
    }
  } catch (...) {
    scanError = std::current_exception();
    queue.abandon();
  }
  producer.join();
  if (queue.error()) std::rethrow_exception(queue.error());
  if (scanError) std::rethrow_exception(scanError);
  if (!queue.found()) return false;
  stream.finish();
  return true;
}

}  // namespace orv

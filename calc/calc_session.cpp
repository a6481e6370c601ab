#include "calc/calc_session.h"

#include <com/sun/star/util/XCloseable.hpp>

#include <algorithm>
#include <cctype>
#include <string>
#include <thread>
#include <vector>

#include "calc/calc_application.h"
#include "calc/office_connection.h"

namespace orv::calc {
namespace {

std::string lowerExtension(const std::filesystem::path& file) {
  std::string ext = file.extension().string();
  std::transform(ext.begin(), ext.end(), ext.begin(), [](unsigned char c) { return std::tolower(c); });
  return ext;
}

// Delimited text: the delimiter's character code, '"' around texts, UTF-8 (76), from line 1, no
// column types, en-US numbers (1033), quoted fields not forced to text, no special numbers
// (dates and the like stay text, as the component's own reader leaves them).
std::string textFilterOptions(char delimiter) {
  return std::to_string(static_cast<unsigned char>(delimiter)) + ",34,76,1,,1033,false,false";
}

}  // namespace

struct CalcSession::Live {
  OfficeConnection connection;
  CalcApplication application;
  std::vector<Reference<css::lang::XComponent>> opened;

  Live(OfficeProcess& office, std::chrono::seconds timeout)
      : connection(office, timeout), application(connection.context()) {}
};

std::optional<OfficeFormat> officeFormatFor(const std::filesystem::path& file) {
  const std::string ext = lowerExtension(file);
  if (ext == ".xlsx") return OfficeFormat::Xlsx;
  if (ext == ".ods") return OfficeFormat::Ods;
  return std::nullopt;
}

CalcSession::CalcSession(std::chrono::seconds startTimeout) : office_(std::make_unique<OfficeProcess>()) {
  try {
    live_ = std::make_unique<Live>(*office_, startTimeout);
  } catch (const ComponentError& e) {
    throw OfficeError("LibreOffice started but the host could not be set up: " + e.description());
  }
}

CalcSession::~CalcSession() {
  if (live_) {
    for (const Reference<css::lang::XComponent>& document : live_->opened) {
      try {
        Reference<css::util::XCloseable>(document, css::uno::UNO_QUERY_THROW)->close(true);
      } catch (...) {
        // The office may be gone already; it is stopped below either way.
      }
    }
  }
  live_.reset();
  office_->stop();
}

Application& CalcSession::application() { return live_->application; }
CalcApplication& CalcSession::calcApplication() { return live_->application; }

Workbook& CalcSession::open(const std::filesystem::path& file, std::optional<char> textDelimiter) {
  Reference<css::lang::XComponent> document =
      textDelimiter ? live_->connection.load(file, "Text - txt - csv (StarCalc)", textFilterOptions(*textDelimiter))
                    : live_->connection.load(file, "", "");
  live_->opened.push_back(document);
  return live_->application.openWorkbook(document, file.filename().string());
}

Workbook& CalcSession::create(const std::string& name) {
  Reference<css::lang::XComponent> document = newHiddenSpreadsheet(live_->connection.context());
  live_->opened.push_back(document);
  return live_->application.openWorkbook(document, name);
}

void CalcSession::finishCall() { live_->application.finishCall(); }

void CalcSession::save(Workbook& workbook, const std::filesystem::path& file, OfficeFormat format) {
  auto* book = dynamic_cast<CalcWorkbook*>(&workbook);
  if (book == nullptr || book->isAddIn()) throw OfficeError("only a workbook opened in the office can be saved by it");
  finishCall();
  live_->connection.store(book->component(), file, format == OfficeFormat::Ods ? "calc8" : "Calc MS Excel 2007 XML");
}

pid_t CalcSession::officePid() const { return office_->pid(); }

bool CalcSession::officeRunning(std::chrono::milliseconds grace) {
  const auto deadline = std::chrono::steady_clock::now() + grace;
  while (!office_->exitCode()) {
    if (std::chrono::steady_clock::now() >= deadline) return true;
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
  }
  return false;
}

}  // namespace orv::calc

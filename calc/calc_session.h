#pragma once
// CalcSession: one run of the component on a live, headless office of our own: the office
// process (office_process.h), its connection, and the live host over it (calc_application.h).
// Nothing of UNO shows through this header, so that the command and tests use it plainly.
//
// Failures to start, open or save raise OfficeError with a message for people; what the
// component does on the host fails as ComponentError, as on any host. The destructor closes the
// documents it opened and stops the office by its process id, whatever happened before.

#include <sys/types.h>

#include <chrono>
#include <filesystem>
#include <memory>
#include <optional>

#include "calc/office_process.h"
#include "frame/host.h"

namespace orv::calc {

class CalcApplication;

enum class OfficeFormat { Xlsx, Ods };

// The format the office's export filters write for a file's extension, .xlsx or .ods in any case;
// nothing for any other (an .xlsm name would promise a macro project the office does not write).
std::optional<OfficeFormat> officeFormatFor(const std::filesystem::path& file);

class CalcSession {
 public:
  // Starts the office and waits for it at most `startTimeout`.
  explicit CalcSession(std::chrono::seconds startTimeout = std::chrono::seconds(60));
  ~CalcSession();
  CalcSession(const CalcSession&) = delete;
  CalcSession& operator=(const CalcSession&) = delete;

  Application& application();
  CalcApplication& calcApplication();

  // Opens a file as a user workbook, named after the file ("data.xlsx"), and makes it the active
  // one. Workbooks and spreadsheets of any kind the office reads are detected by it; delimited
  // text needs its delimiter (`textDelimiter`), and is read as UTF-8 with en-US numbers.
  Workbook& open(const std::filesystem::path& file, std::optional<char> textDelimiter = std::nullopt);
  // A new workbook of one empty sheet "Sheet1", named `name`, the active one.
  Workbook& create(const std::string& name);
  // Sends what is pending and writes a workbook opened here to `file` with the office's export
  // filter for the format (the file's own name may be a temporary one).
  void save(Workbook& workbook, const std::filesystem::path& file, OfficeFormat format);
  // Sends what the component's call left pending (calc_application.h, finishCall).
  void finishCall();

  pid_t officePid() const;
  // Whether the office still runs, waiting up to `grace` for it to end: an office that was just
  // killed may still be on its way out when its connection is already gone.
  bool officeRunning(std::chrono::milliseconds grace = std::chrono::milliseconds(0));

 private:
  struct Live;
  std::unique_ptr<OfficeProcess> office_;
  std::unique_ptr<Live> live_;
};

}  // namespace orv::calc

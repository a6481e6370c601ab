#include "host_under_test.h"

#include <com/sun/star/container/XIndexAccess.hpp>
#include <com/sun/star/container/XNamed.hpp>
#include <com/sun/star/util/XCloseable.hpp>

#include "calc/calc_application.h"
#include "calc/office_services.h"
#include "office_environment.h"
#include "workbook/in_memory_application.h"

namespace orv::test {
namespace {

using css::uno::Reference;
using css::uno::UNO_QUERY_THROW;

class InMemoryHost final : public HostUnderTest {
 public:
  explicit InMemoryHost(const std::vector<std::string>& sheets) : book_(app_.AddWorkbook("Book1.xlsx", sheets)) {}
  Application& app() override { return app_; }
  Workbook& book() override { return book_; }
  Workbook& reread() override { return book_; }
  std::vector<ProbedChart> charts(Worksheet& sheet) override { return probeInMemory(sheet); }

 private:
  InMemoryApplication app_;
  InMemoryWorkbook& book_;
};

// A hidden document of the test's office, its sheets renamed and added as asked.
Reference<css::lang::XComponent> documentWith(const std::vector<std::string>& sheets) {
  const Reference<css::uno::XComponentContext>& context = OfficeEnvironment::connection().context();
  Reference<css::lang::XComponent> document = calc::newHiddenSpreadsheet(context);
  const Reference<css::sheet::XSpreadsheets> all =
      Reference<css::sheet::XSpreadsheetDocument>(document, UNO_QUERY_THROW)->getSheets();
  Reference<css::container::XNamed>(Reference<css::container::XIndexAccess>(all, UNO_QUERY_THROW)->getByIndex(0),
                                    UNO_QUERY_THROW)
      ->setName(calc::toUno(sheets.front()));
  for (std::size_t i = 1; i < sheets.size(); ++i)
    all->insertNewByName(calc::toUno(sheets[i]), static_cast<sal_Int16>(i));
  return document;
}

class LiveHost final : public HostUnderTest {
 public:
  explicit LiveHost(const std::vector<std::string>& sheets) : document_(documentWith(sheets)) { open(); }
  ~LiveHost() override {
    app_.reset();
    try {
      Reference<css::util::XCloseable>(document_, UNO_QUERY_THROW)->close(true);
    } catch (...) {
    }
  }
  Application& app() override { return *app_; }
  Workbook& book() override { return *book_; }
  Workbook& reread() override {
    app_->finishCall();
    open();
    return *book_;
  }
  std::vector<ProbedChart> charts(Worksheet& sheet) override { return probeLive(sheet); }

 private:
  void open() {
    app_ = std::make_unique<calc::CalcApplication>(OfficeEnvironment::connection().context());
    book_ = &app_->openWorkbook(document_, "Book1.xlsx");
  }
  Reference<css::lang::XComponent> document_;
  std::unique_ptr<calc::CalcApplication> app_;
  Workbook* book_ = nullptr;
};

}  // namespace

std::unique_ptr<HostUnderTest> inMemoryHost(const std::vector<std::string>& sheets) {
  return std::make_unique<InMemoryHost>(sheets);
}

std::unique_ptr<HostUnderTest> liveHost(const std::vector<std::string>& sheets) {
  return std::make_unique<LiveHost>(sheets);
}

}  // namespace orv::test

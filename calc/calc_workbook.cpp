#include "calc/calc_workbook.h"

#include <com/sun/star/beans/XPropertySet.hpp>
#include <com/sun/star/container/XIndexAccess.hpp>
#include <com/sun/star/container/XNamed.hpp>
#include <com/sun/star/sheet/XNamedRange.hpp>
#include <com/sun/star/sheet/XNamedRanges.hpp>
#include <com/sun/star/sheet/XSheetCellRangeContainer.hpp>
#include <com/sun/star/sheet/XSpreadsheets.hpp>
#include <com/sun/star/table/CellRangeAddress.hpp>
#include <com/sun/star/view/XSelectionSupplier.hpp>

#include <algorithm>

#include "calc/calc_application.h"
#include "calc/chart_data_sheet.h"
#include "calc/office_notation.h"
#include "frame/defined_name.h"
#include "frame/errors.h"

namespace orv::calc {

using css::uno::UNO_QUERY;
using css::uno::UNO_QUERY_THROW;

CalcWorkbook::CalcWorkbook(CalcApplication& application, Reference<css::lang::XComponent> document, std::string name,
                           bool addIn)
    : application_(&application),
      component_(std::move(document)),
      document_(component_, UNO_QUERY_THROW),
      name_(std::move(name)),
      addIn_(addIn),
      numbers_(component_) {
  remote("list the sheets of " + name_, [&] {
    const Reference<css::container::XIndexAccess> sheets(document_->getSheets(), UNO_QUERY_THROW);
    OUString activeName;
    if (const Reference<css::sheet::XSpreadsheetView> v = view(); v.is()) {
      activeName = Reference<css::container::XNamed>(v->getActiveSheet(), UNO_QUERY_THROW)->getName();
    }
    for (sal_Int32 i = 0; i < sheets->getCount(); ++i) {
      const Reference<css::sheet::XSpreadsheet> sheet(sheets->getByIndex(i), UNO_QUERY_THROW);
      const OUString sheetName = Reference<css::container::XNamed>(sheet, UNO_QUERY_THROW)->getName();
      if (ChartDataSheet::isChartDataSheet(fromUno(sheetName))) continue;
      sheets_.push_back(std::make_unique<CalcWorksheet>(*this, sheet, fromUno(sheetName)));
      if (sheetName == activeName || active_ == nullptr) active_ = sheets_.back().get();
    }
  });
}

CalcWorkbook::~CalcWorkbook() = default;

Application& CalcWorkbook::application() { return *application_; }

Reference<css::lang::XMultiServiceFactory> CalcWorkbook::factory() const {
  return Reference<css::lang::XMultiServiceFactory>(component_, UNO_QUERY_THROW);
}

Reference<css::sheet::XSpreadsheetView> CalcWorkbook::view() const {
  const Reference<css::frame::XModel> model(component_, UNO_QUERY_THROW);
  return Reference<css::sheet::XSpreadsheetView>(model->getCurrentController(), UNO_QUERY);
}

CalcWorksheet& CalcWorkbook::Worksheets(std::int32_t index) {
  if (index < 1 || index > WorksheetsCount()) raise(err::kSubscriptOutOfRange);
  return *sheets_[static_cast<std::size_t>(index - 1)];
}

CalcWorksheet& CalcWorkbook::Worksheets(std::string_view name) {
  for (const auto& sheet : sheets_) {
    if (sameSheetName(sheet->Name(), name)) return *sheet;
  }
  raise(err::kSubscriptOutOfRange);
}

std::vector<std::unique_ptr<CalcWorksheet>>::iterator CalcWorkbook::find(const CalcWorksheet& sheet) {
  return std::find_if(sheets_.begin(), sheets_.end(), [&](const auto& s) { return s.get() == &sheet; });
}

void CalcWorkbook::Activate() { application_->activateWorkbook(*this); }

namespace {

// The reference of the name in a set of named ranges, as A1 text; names compare without case.
// A name that stands for no cells gives its content as it is, for the host to refuse.
std::optional<std::string> namedIn(const Reference<css::beans::XPropertySet>& owner, std::string_view name) {
  if (!owner.is()) return std::nullopt;
  const Reference<css::sheet::XNamedRanges> ranges(owner->getPropertyValue("NamedRanges"), UNO_QUERY);
  if (!ranges.is()) return std::nullopt;
  for (const OUString& candidate : ranges->getElementNames()) {
    if (!sameName(fromUno(candidate), name)) continue;
    const Reference<css::sheet::XNamedRange> range(ranges->getByName(candidate), UNO_QUERY_THROW);
    const std::string content = fromUno(range->getContent());
    return a1FromOffice(content).value_or(content);
  }
  return std::nullopt;
}

}  // namespace

std::optional<std::string> CalcWorkbook::nameReference(std::string_view name, std::string_view sheet,
                                                       bool sheetOnly) const {
  return remote("look up the name " + std::string(name), [&]() -> std::optional<std::string> {
    for (const auto& s : sheets_) {
      if (!sameSheetName(s->Name(), sheet)) continue;
      if (auto found = namedIn(Reference<css::beans::XPropertySet>(s->sheet(), UNO_QUERY), name)) return found;
    }
    if (sheetOnly) return std::nullopt;
    return namedIn(Reference<css::beans::XPropertySet>(component_, UNO_QUERY), name);
  });
}

void CalcWorkbook::activateSheet(CalcWorksheet& sheet) {
  if (find(sheet) == sheets_.end()) raise(err::kSubscriptOutOfRange);
  active_ = &sheet;
  remote("activate the sheet " + sheet.Name(), [&] {
    if (const Reference<css::sheet::XSpreadsheetView> v = view(); v.is()) v->setActiveSheet(sheet.sheet());
  });
}

CalcWorksheet& CalcWorkbook::addNewSheet() {
  std::vector<std::string> names;
  for (const auto& sheet : sheets_) names.push_back(sheet->Name());
  const std::string name = nextDefaultSheetName(sheetCounter_, names);

  const auto at = active_ != nullptr ? find(*active_) : sheets_.end();
  const auto position = static_cast<sal_Int16>(at - sheets_.begin());
  Reference<css::sheet::XSpreadsheet> added = remote("add the sheet " + name + " to " + name_, [&] {
    const Reference<css::sheet::XSpreadsheets> sheets = document_->getSheets();
    sheets->insertNewByName(toUno(name), position);
    return Reference<css::sheet::XSpreadsheet>(sheets->getByName(toUno(name)), UNO_QUERY_THROW);
  });
  auto inserted = sheets_.insert(at, std::make_unique<CalcWorksheet>(*this, std::move(added), name));
  activateSheet(**inserted);
  return **inserted;
}

void CalcWorkbook::moveAfter(CalcWorksheet& moved, CalcWorksheet& after) {
  auto from = find(moved);
  if (from == sheets_.end() || find(after) == sheets_.end()) raise(err::kSubscriptOutOfRange);
  if (&moved != &after) {
    // The office takes the position to insert before, counted before the sheet leaves its place;
    // the host's own sheets stand after all of the user's.
    const auto position = static_cast<sal_Int16>(find(after) - sheets_.begin() + 1);
    remote("move the sheet " + moved.Name(),
           [&] { document_->getSheets()->moveByName(toUno(moved.Name()), position); });
    std::unique_ptr<CalcWorksheet> owned = std::move(*from);
    sheets_.erase(from);
    sheets_.insert(find(after) + 1, std::move(owned));
  }
  activateSheet(moved);
}

void CalcWorkbook::select(CalcWorksheet& sheet, const std::vector<CellBlock>& areas) {
  remote("select cells of " + sheet.Name(), [&] {
    const Reference<css::sheet::XSpreadsheetView> v = view();
    if (!v.is()) return;
    const Reference<css::view::XSelectionSupplier> selection(v, UNO_QUERY_THROW);
    if (areas.size() == 1) {
      const CellBlock& a = areas.front();
      selection->select(
          css::uno::Any(sheet.sheet()->getCellRangeByPosition(a.left - 1, a.top - 1, a.right - 1, a.bottom - 1)));
      return;
    }
    const Reference<css::sheet::XSheetCellRangeContainer> ranges(
        factory()->createInstance("com.sun.star.sheet.SheetCellRanges"), UNO_QUERY_THROW);
    for (const CellBlock& a : areas) {
      ranges->addRangeAddress(css::table::CellRangeAddress(static_cast<sal_Int16>(find(sheet) - sheets_.begin()),
                                                           a.left - 1, a.top - 1, a.right - 1, a.bottom - 1),
                              false);
    }
    selection->select(css::uno::Any(ranges));
  });
}

void CalcWorkbook::flush() {
  for (const auto& sheet : sheets_) sheet->flush();
}

void CalcWorkbook::flushValues() {
  for (const auto& sheet : sheets_) sheet->flushValues();
}

ChartDataSheet& CalcWorkbook::chartData() {
  if (!chartData_) chartData_ = std::make_unique<ChartDataSheet>(*this);
  return *chartData_;
}

}  // namespace orv::calc

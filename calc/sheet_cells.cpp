#include "calc/sheet_cells.h"

#include <com/sun/star/beans/XPropertySet.hpp>
#include <com/sun/star/container/XIndexAccess.hpp>
#include <com/sun/star/sheet/CellFlags.hpp>
#include <com/sun/star/sheet/XCellRangeAddressable.hpp>
#include <com/sun/star/sheet/XCellRangeData.hpp>
#include <com/sun/star/sheet/XCellRangesQuery.hpp>
#include <com/sun/star/sheet/XSheetCellRangeContainer.hpp>
#include <com/sun/star/sheet/XSheetCellRanges.hpp>
#include <com/sun/star/sheet/XSheetOperation.hpp>
#include <com/sun/star/sheet/XUniqueCellFormatRangesSupplier.hpp>
#include <com/sun/star/table/CellRangeAddress.hpp>
#include <com/sun/star/table/XCell.hpp>
#include <com/sun/star/util/NumberFormat.hpp>

#include <algorithm>
#include <array>

#include "frame/reference.h"

namespace orv::calc {
namespace {

using css::uno::Any;
using css::uno::Sequence;
using css::uno::UNO_QUERY_THROW;

// The office's error codes for the error values a cell can show.
constexpr std::array<std::pair<sal_Int32, ErrorValue>, 7> kErrorCodes = {{
    {521, ErrorValue::Null},
    {532, ErrorValue::Div0},
    {519, ErrorValue::Value},
    {524, ErrorValue::Ref},
    {525, ErrorValue::Name},
    {503, ErrorValue::Num},
    {32767, ErrorValue::NA},
}};

// Error codes of the office's own (Err:502 and the like) read as #VALUE!, the error value the
// component's host would show for a failed calculation.
ErrorValue errorOf(sal_Int32 code) {
  for (const auto& [c, e] : kErrorCodes) {
    if (c == code) return e;
  }
  return ErrorValue::Value;
}

// Calls visit(row, column) for every cell of `from` that lies in `within`.
template <class Visit>
void forEachCellIn(const css::table::CellRangeAddress& from, const CellBlock& within, Visit&& visit) {
  const CellBlock b = blockOf(from);
  for (std::int32_t r = std::max(b.top, within.top); r <= std::min(b.bottom, within.bottom); ++r) {
    for (std::int32_t c = std::max(b.left, within.left); c <= std::min(b.right, within.right); ++c) visit(r, c);
  }
}

}  // namespace

SheetCells::SheetCells(Reference<css::sheet::XSpreadsheet> sheet, Reference<css::lang::XMultiServiceFactory> document,
                       NumberFormatTable& numbers, std::string label)
    : sheet_(std::move(sheet)), document_(std::move(document)), numbers_(&numbers), label_(std::move(label)) {}

std::string SheetCells::describe(const CellBlock& block) const {
  return quoteSheetName(label_) + "!" + absoluteAddress(block);
}

Reference<css::uno::XInterface> SheetCells::rangeOf(const CellBlock& block) const {
  return sheet_->getCellRangeByPosition(block.left - 1, block.top - 1, block.right - 1, block.bottom - 1);
}

void SheetCells::read(const CellBlock& block, ValueArray2D& out) {
  remote("read the cells of " + describe(block), [&] {
    const Reference<css::sheet::XCellRangeData> data(rangeOf(block), UNO_QUERY_THROW);
    const Sequence<Sequence<Any>> rows = data->getDataArray();
    bool numbers = false;
    for (sal_Int32 i = 0; i < rows.getLength(); ++i) {
      const Sequence<Any>& row = rows[i];
      for (sal_Int32 j = 0; j < row.getLength(); ++j) {
        CellValue& cell = out(i + 1, j + 1);
        const Any& v = row[j];
        double number = 0;
        OUString text;
        if (v >>= number) {
          cell = number;
          numbers = true;
        } else if (v >>= text) {
          cell = text.isEmpty() ? CellValue{} : CellValue(fromUno(text));
        } else {
          const Reference<css::table::XCell> c = sheet_->getCellByPosition(block.left - 1 + j, block.top - 1 + i);
          cell = errorOf(c->getError());
        }
      }
    }
    if (numbers) markBooleans(block, out);
  });
}

// The office keeps TRUE and FALSE as 1 and 0 in a cell with a Boolean number format.
void SheetCells::markBooleans(const CellBlock& block, ValueArray2D& out) {
  const Reference<css::sheet::XUniqueCellFormatRangesSupplier> supplier(rangeOf(block), UNO_QUERY_THROW);
  const Reference<css::container::XIndexAccess> groups = supplier->getUniqueCellFormatRanges();
  for (sal_Int32 g = 0; g < groups->getCount(); ++g) {
    const Reference<css::beans::XPropertySet> group(groups->getByIndex(g), UNO_QUERY_THROW);
    sal_Int32 key = 0;
    group->getPropertyValue("NumberFormat") >>= key;
    if ((numbers_->typeOf(key) & css::util::NumberFormat::LOGICAL) == 0) continue;
    const Reference<css::sheet::XSheetCellRanges> ranges(group, UNO_QUERY_THROW);
    for (const css::table::CellRangeAddress& a : ranges->getRangeAddresses()) {
      forEachCellIn(a, block, [&](std::int32_t r, std::int32_t c) {
        CellValue& cell = out(r - block.top + 1, c - block.left + 1);
        if (cell.isNumber()) cell = cell.number() != 0;
      });
    }
  }
}

void SheetCells::write(const CellBlock& block, const ValueArray2D& values) {
  remote("write the cells of " + describe(block), [&] {
    Sequence<Sequence<Any>> rows(block.rows());
    std::vector<std::pair<CellBlock, CellValue>> special;
    for (std::int32_t i = 1; i <= block.rows(); ++i) {
      Sequence<Any>& row = rows.getArray()[i - 1];
      row.realloc(block.columns());
      for (std::int32_t j = 1; j <= block.columns(); ++j) {
        const CellValue& v = values(i, j);
        Any& cell = row.getArray()[j - 1];
        if (v.isNumber()) {
          cell <<= v.number();
        } else if (v.isText()) {
          cell <<= toUno(v.text());
        } else {
          cell <<= OUString();
          if (v.isError() || v.isBoolean()) {
            const std::int32_t r = block.top + i - 1, c = block.left + j - 1;
            special.emplace_back(CellBlock{r, c, r, c}, v);
          }
        }
      }
    }
    const Reference<css::sheet::XCellRangeData> data(rangeOf(block), UNO_QUERY_THROW);
    data->setDataArray(rows);
    for (const auto& [at, v] : special) {
      const Reference<css::table::XCell> cell = sheet_->getCellByPosition(at.left - 1, at.top - 1);
      if (v.isError()) {
        cell->setFormula(toUno("=" + std::string(errorValueText(v.error()))));
      } else {
        cell->setValue(v.boolean() ? 1 : 0);
        const Reference<css::beans::XPropertySet> props(cell, UNO_QUERY_THROW);
        props->setPropertyValue("NumberFormat", Any(numbers_->booleanKey()));
      }
    }
  });
}

std::optional<CellBlock> SheetCells::usedBlock() {
  return remote("find the used cells of " + quoteSheetName(label_), [&]() -> std::optional<CellBlock> {
    using namespace css::sheet::CellFlags;
    const Reference<css::sheet::XCellRangesQuery> query(sheet_, UNO_QUERY_THROW);
    const Reference<css::sheet::XSheetCellRanges> cells =
        query->queryContentCells(static_cast<sal_Int16>(VALUE | DATETIME | STRING | FORMULA));
    std::optional<CellBlock> used;
    for (const css::table::CellRangeAddress& a : cells->getRangeAddresses()) {
      const CellBlock b = blockOf(a);
      used = used ? CellBlock{std::min(used->top, b.top), std::min(used->left, b.left),
                              std::max(used->bottom, b.bottom), std::max(used->right, b.right)}
                  : b;
    }
    return used;
  });
}

std::vector<CellFormat> SheetCells::read(const CellBlock& block) {
  return remote("read the formats of " + describe(block), [&] {
    std::vector<CellFormat> formats(static_cast<std::size_t>(block.rows()) * static_cast<std::size_t>(block.columns()));
    const Reference<css::sheet::XUniqueCellFormatRangesSupplier> supplier(rangeOf(block), UNO_QUERY_THROW);
    const Reference<css::container::XIndexAccess> groups = supplier->getUniqueCellFormatRanges();
    for (sal_Int32 g = 0; g < groups->getCount(); ++g) {
      const Reference<css::beans::XMultiPropertySet> group(groups->getByIndex(g), UNO_QUERY_THROW);
      const CellFormat format = formatFrom(group->getPropertyValues(formatPropertyNames()), *numbers_);
      const Reference<css::sheet::XSheetCellRanges> ranges(group, UNO_QUERY_THROW);
      for (const css::table::CellRangeAddress& a : ranges->getRangeAddresses()) {
        forEachCellIn(a, block, [&](std::int32_t r, std::int32_t c) {
          formats[static_cast<std::size_t>(r - block.top) * static_cast<std::size_t>(block.columns()) +
                  static_cast<std::size_t>(c - block.left)] = format;
        });
      }
    }
    return formats;
  });
}

void SheetCells::patch(const CellBlock& block, const FormatPatch& patch) {
  remote("format the cells of " + describe(block), [&] {
    std::vector<OUString> names;
    std::vector<Any> values;
    patchProperties(patch, *numbers_, names, values);
    if (names.empty()) return;
    const Reference<css::beans::XMultiPropertySet> range(rangeOf(block), UNO_QUERY_THROW);
    range->setPropertyValues(Sequence<OUString>(names.data(), static_cast<sal_Int32>(names.size())),
                             Sequence<Any>(values.data(), static_cast<sal_Int32>(values.size())));
  });
}

void SheetCells::set(const std::vector<CellBlock>& blocks, const CellFormat& format) {
  if (blocks.empty()) return;
  remote("format the cells of " + describe(blocks.front()) + (blocks.size() > 1 ? " and others" : ""), [&] {
    Reference<css::beans::XMultiPropertySet> target;
    if (blocks.size() == 1) {
      target.set(rangeOf(blocks.front()), UNO_QUERY_THROW);
    } else {
      // Several rectangles get their format in one call through a list of ranges.
      const sal_Int16 index =
          Reference<css::sheet::XCellRangeAddressable>(sheet_, UNO_QUERY_THROW)->getRangeAddress().Sheet;
      Sequence<css::table::CellRangeAddress> addresses(static_cast<sal_Int32>(blocks.size()));
      for (std::size_t i = 0; i < blocks.size(); ++i) {
        const CellBlock& b = blocks[i];
        addresses.getArray()[i] = css::table::CellRangeAddress(index, b.left - 1, b.top - 1, b.right - 1, b.bottom - 1);
      }
      const Reference<css::sheet::XSheetCellRangeContainer> container(
          document_->createInstance("com.sun.star.sheet.SheetCellRanges"), UNO_QUERY_THROW);
      container->addRangeAddresses(addresses, false);
      target.set(container, UNO_QUERY_THROW);
    }
    target->setPropertyValues(formatPropertyNames(), formatValues(format, *numbers_));
  });
}

void SheetCells::clear(const CellBlock& block) {
  remote("clear the cells of " + describe(block), [&] {
    using namespace css::sheet::CellFlags;
    const Reference<css::sheet::XSheetOperation> range(rangeOf(block), UNO_QUERY_THROW);
    range->clearContents(VALUE | DATETIME | STRING | ANNOTATION | FORMULA | HARDATTR | STYLES | EDITATTR);
  });
}

}  // namespace orv::calc

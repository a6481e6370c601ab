#include "frame/range.h"

#include <algorithm>
#include <string>
#include <utility>

#include "frame/errors.h"
#include "frame/host.h"

namespace orv {
namespace {

bool insideSheet(std::int64_t row, std::int64_t column) {
  return row >= 1 && row <= kMaxRows && column >= 1 && column <= kMaxColumns;
}

void requireSameSheet(const Range& a, const Range& b, std::string_view what) {
  if (&a.Parent() != &b.Parent()) {
    raiseHost(std::string(what) + ": the ranges lie on different sheets (\"" + a.Parent().Name() + "\" and \"" +
              b.Parent().Name() + "\")");
  }
}

}  // namespace

Range::Range(Worksheet& sheet, CellBlock block) : sheet_(&sheet), areas_{block} {}

Range::Range(Worksheet& sheet, std::vector<CellBlock> areas) : sheet_(&sheet), areas_(std::move(areas)) {
  if (areas_.empty()) raiseHost("A range needs at least one area");
}

Range Range::Span(const Range& first, const Range& second) {
  requireSameSheet(first, second, "Range(cell, cell)");
  const CellBlock& a = first.block();
  const CellBlock& b = second.block();
  return Range(first.Parent(), CellBlock{std::min(a.top, b.top), std::min(a.left, b.left), std::max(a.bottom, b.bottom),
                                         std::max(a.right, b.right)});
}

Range Range::AllCells(Worksheet& sheet) { return Range(sheet, CellBlock{1, 1, kMaxRows, kMaxColumns}); }

Range Range::Areas(std::int32_t index) const {
  if (index < 1 || index > AreasCount()) raiseSubscript();
  return Range(*sheet_, areas_[static_cast<std::size_t>(index - 1)]);
}

Range Range::Columns(std::int32_t column) const {
  const CellBlock& b = block();
  const std::int64_t c = std::int64_t{b.left} + column - 1;
  if (!insideSheet(b.top, c)) raiseHost("Columns(" + std::to_string(column) + ") lies outside the sheet");
  return Range(*sheet_, CellBlock{b.top, static_cast<std::int32_t>(c), b.bottom, static_cast<std::int32_t>(c)});
}

Range Range::Rows(std::int32_t row) const {
  const CellBlock& b = block();
  const std::int64_t r = std::int64_t{b.top} + row - 1;
  if (!insideSheet(r, b.left)) raiseHost("Rows(" + std::to_string(row) + ") lies outside the sheet");
  return Range(*sheet_, CellBlock{static_cast<std::int32_t>(r), b.left, static_cast<std::int32_t>(r), b.right});
}

Range Range::Cells(std::int64_t row, std::int64_t column) const {
  const CellBlock& b = block();
  const std::int64_t r = std::int64_t{b.top} + row - 1;
  const std::int64_t c = std::int64_t{b.left} + column - 1;
  if (!insideSheet(r, c)) {
    raiseHost("Cells(" + std::to_string(row) + ", " + std::to_string(column) + ") of " + Address() +
              " lies outside the sheet");
  }
  const auto r32 = static_cast<std::int32_t>(r);
  const auto c32 = static_cast<std::int32_t>(c);
  return Range(*sheet_, CellBlock{r32, c32, r32, c32});
}

std::int64_t Range::CellCount() const {
  std::int64_t n = 0;
  for (const CellBlock& a : areas_) n += std::int64_t{a.rows()} * a.columns();
  return n;
}

ValueArray2D Range::Values() const {
  ValueArray2D out(RowsCount(), ColumnsCount());
  sheet_->readBlock(block(), out);
  return out;
}

CellValue Range::Value() const { return sheet_->cellValue(block().top, block().left); }

void Range::SetValue(const CellValue& v) const {
  for (const CellBlock& a : areas_)
    for (std::int32_t c = a.left; c <= a.right; ++c)
      for (std::int32_t r = a.top; r <= a.bottom; ++r) sheet_->assignValue(r, c, v);
}

void Range::SetValues(const ValueArray2D& values) const {
  const CellBlock& a = block();
  const CellValue notAvailable(ErrorValue::NA);
  for (std::int32_t i = 1; i <= a.rows(); ++i) {
    for (std::int32_t j = 1; j <= a.columns(); ++j) {
      const bool inside = i <= values.rows() && j <= values.columns();
      sheet_->assignValue(a.top + i - 1, a.left + j - 1, inside ? values(i, j) : notAvailable);
    }
  }
}

std::string Range::Address() const { return absoluteAddress(areas_); }

std::string Range::AddressWithSheet() const { return quoteSheetName(sheet_->Name()) + "!" + Address(); }

double Range::Top() const { return sheet_->rowTop(block().top); }
double Range::Left() const { return sheet_->columnLeft(block().left); }
double Range::Height() const {
  const CellBlock& b = block();
  return sheet_->rowTop(b.bottom) + sheet_->rowHeight(b.bottom) - sheet_->rowTop(b.top);
}
double Range::Width() const {
  const CellBlock& b = block();
  return sheet_->columnLeft(b.right) + sheet_->columnWidth(b.right) - sheet_->columnLeft(b.left);
}

CellFormat Range::Format() const { return sheet_->cellFormat(block().top, block().left); }

void Range::ApplyFormat(const FormatPatch& patch) const {
  for (const CellBlock& a : areas_) sheet_->applyFormat(a, patch);
}
void Range::SetNumberFormat(const std::string& format) const {
  FormatPatch p;
  p.numberFormat = format;
  ApplyFormat(p);
}
void Range::SetBold(bool bold) const {
  FormatPatch p;
  p.bold = bold;
  ApplyFormat(p);
}
void Range::SetFontSize(double size) const {
  FormatPatch p;
  p.fontSize = size;
  ApplyFormat(p);
}
void Range::SetFontColorIndex(std::int32_t index) const {
  FormatPatch p;
  p.fontColorIndex = index;
  ApplyFormat(p);
}
void Range::SetInteriorColorIndex(std::int32_t index) const {
  FormatPatch p;
  p.interiorColorIndex = index;
  ApplyFormat(p);
}
void Range::SetHorizontalAlignment(HAlign align) const {
  FormatPatch p;
  p.horizontalAlignment = align;
  ApplyFormat(p);
}

void Range::Clear() const {
  for (const CellBlock& a : areas_) sheet_->clear(a);
}

void Range::Copy() const { sheet_->Parent().application().setClipboard(*this); }

void Range::PasteSpecial(PasteType type) const {
  const std::optional<Range>& clip = sheet_->Parent().application().clipboard();
  if (!clip) raiseHost("PasteSpecial: nothing has been copied");

  const Range& source = *clip;
  const CellBlock& from = source.block();
  const CellBlock& at = block();
  if (!insideSheet(std::int64_t{at.top} + from.rows() - 1, std::int64_t{at.left} + from.columns() - 1)) {
    raiseHost("PasteSpecial: a block of " + std::to_string(from.rows()) + " rows by " + std::to_string(from.columns()) +
              " columns does not fit below and right of " + Address());
  }

  // Read everything first: source and target may overlap on one sheet.
  const ValueArray2D values = source.Values();
  std::vector<CellFormat> formats;
  const bool withValues = type != PasteType::Formats;
  const bool withFormats = type == PasteType::All || type == PasteType::Formats;
  const bool withNumberFormats = type == PasteType::ValuesAndNumberFormats;
  if (withFormats || withNumberFormats) {
    formats.reserve(static_cast<std::size_t>(from.rows()) * static_cast<std::size_t>(from.columns()));
    for (std::int32_t i = 0; i < from.rows(); ++i)
      for (std::int32_t j = 0; j < from.columns(); ++j)
        formats.push_back(source.Parent().cellFormat(from.top + i, from.left + j));
  }

  Worksheet& target = *sheet_;
  std::size_t k = 0;
  for (std::int32_t i = 0; i < from.rows(); ++i) {
    for (std::int32_t j = 0; j < from.columns(); ++j, ++k) {
      const std::int32_t r = at.top + i;
      const std::int32_t c = at.left + j;
      // Empty source cells are pasted too: they clear the target cell's value.
      if (withValues) target.pasteValue(r, c, values(i + 1, j + 1));
      if (withFormats) {
        target.setCellFormat(r, c, formats[k]);
      } else if (withNumberFormats) {
        CellFormat f = target.cellFormat(r, c);
        f.numberFormat = formats[k].numberFormat;
        target.setCellFormat(r, c, f);
      }
    }
  }
}

void Range::Select() const { sheet_->select(areas_); }

Range Union(const Range& first, const Range& second) {
  requireSameSheet(first, second, "Union");
  std::vector<CellBlock> areas = first.areas();
  areas.insert(areas.end(), second.areas().begin(), second.areas().end());
  return Range(first.Parent(), std::move(areas));
}

}  // namespace orv

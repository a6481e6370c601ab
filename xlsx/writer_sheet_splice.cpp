#include "xlsx/writer_sheet_splice.h"

#include <algorithm>
#include <cctype>

#include "frame/errors.h"
#include "workbook/in_memory_worksheet.h"
#include "xlsx/writer_cell.h"
#include "xlsx/writer_column_splice.h"
#include "xlsx/writer_styles.h"
#include "xlsx/writer_xml.h"
#include "xlsx/xml_names.h"

namespace orv {
namespace {

struct Position {
  std::int32_t row = 0;
  std::int32_t column = 0;
};

// "B7" -> {7, 2}; zeros when the text is no cell name.
Position parseCellName(std::string_view name) {
  std::size_t letters = 0;
  while (letters < name.size() && std::isalpha(static_cast<unsigned char>(name[letters])) != 0) ++letters;
  const std::int32_t column = columnNumber(name.substr(0, letters));
  std::int64_t row = 0;
  for (std::size_t i = letters; i < name.size(); ++i) {
    if (name[i] < '0' || name[i] > '9' || row > kMaxRows) return {};
    row = row * 10 + (name[i] - '0');
  }
  if (column == 0 || row < 1 || row > kMaxRows || letters == name.size()) return {};
  return {static_cast<std::int32_t>(row), column};
}

// Gives every row its r (rows without one follow the previous row).
void numberRows(pugi::xml_node sheetData) {
  std::int32_t previous = 0;
  for (pugi::xml_node row = sheetData.first_child(); row; row = row.next_sibling()) {
    if (!xml::isElement(row, "row")) continue;
    pugi::xml_attribute r = row.attribute("r");
    if (!r) {
      r = row.append_attribute("r");
      r.set_value(previous + 1);
    }
    previous = r.as_int();
  }
}

// Gives every cell of the row its r, and returns the row's cells by column.
void numberCells(pugi::xml_node row, std::int32_t rowNumber) {
  std::int32_t previous = 0;
  for (pugi::xml_node c = row.first_child(); c; c = c.next_sibling()) {
    if (!xml::isElement(c, "c")) continue;
    pugi::xml_attribute r = c.attribute("r");
    if (!r) {
      r = c.append_attribute("r");
      r.set_value(xml::cellName(rowNumber, previous + 1).c_str());
    }
    previous = parseCellName(r.value()).column;
  }
}

pugi::xml_node findOrAddRow(pugi::xml_node sheetData, std::int32_t number, const std::string& prefix) {
  for (pugi::xml_node row = sheetData.first_child(); row; row = row.next_sibling()) {
    if (!xml::isElement(row, "row")) continue;
    const std::int32_t at = row.attribute("r").as_int();
    if (at == number) return row;
    if (at > number) {
      pugi::xml_node added = sheetData.insert_child_before((prefix + "row").c_str(), row);
      added.append_attribute("r").set_value(number);
      return added;
    }
  }
  pugi::xml_node added = sheetData.append_child((prefix + "row").c_str());
  added.append_attribute("r").set_value(number);
  return added;
}

// The new <c> parsed from its text, so that cellXml is the one place that writes cells.
pugi::xml_node placeCell(pugi::xml_node row, pugi::xml_node before, const std::string& cellText) {
  pugi::xml_document fragment;
  fragment.load_buffer(cellText.data(), cellText.size(), pugi::parse_default | pugi::parse_ws_pcdata);
  return before ? row.insert_copy_before(fragment.first_child(), before) : row.append_copy(fragment.first_child());
}

void spliceRow(pugi::xml_node row, std::int32_t rowNumber, const InMemoryWorksheet& sheet, const CellBlock& block,
               StyleSheet& styles, const std::string& prefix) {
  numberCells(row, rowNumber);
  row.remove_attribute("spans");
  pugi::xml_node cursor = row.first_child();
  for (std::int32_t column = block.left; column <= block.right; ++column) {
    // Cells ascend, so the scan resumes where the previous column stopped.
    while (cursor && (!xml::isElement(cursor, "c") || parseCellName(cursor.attribute("r").value()).column < column)) {
      cursor = cursor.next_sibling();
    }
    pugi::xml_node existing;
    if (cursor && parseCellName(cursor.attribute("r").value()).column == column) existing = cursor;

    const CellValue value = sheet.cellValue(rowNumber, column);
    const std::uint32_t style = styles.xfFor(sheet.cellFormat(rowNumber, column));
    pugi::xml_node next = existing ? existing.next_sibling() : cursor;
    if (existing) row.remove_child(existing);
    if (!value.isEmpty() || style != 0) placeCell(row, next, cellXml(rowNumber, column, value, style, prefix));
    cursor = next;
  }
}

bool hasCells(const pugi::xml_node& row) {
  for (pugi::xml_node c = row.first_child(); c; c = c.next_sibling()) {
    if (xml::isElement(c, "c")) return true;
  }
  return false;
}

void growDimension(pugi::xml_node worksheet, const CellBlock& block) {
  pugi::xml_node dimension = xml::child(worksheet, "dimension");
  if (!dimension) return;  // optional; readers compute the used range themselves
  pugi::xml_attribute ref = dimension.attribute("ref");
  const std::string text = ref.value();
  const std::size_t colon = text.find(':');
  const Position first = parseCellName(std::string_view(text).substr(0, colon));
  const Position last = colon == std::string::npos ? first : parseCellName(std::string_view(text).substr(colon + 1));
  CellBlock box = block;
  if (first.row != 0 && last.row != 0) {
    box = {std::min(first.row, block.top), std::min(first.column, block.left), std::max(last.row, block.bottom),
           std::max(last.column, block.right)};
  }
  ref.set_value((xml::cellName(box.top, box.left) + ":" + xml::cellName(box.bottom, box.right)).c_str());
}

void selectView(pugi::xml_node worksheet, const InMemoryWorksheet& sheet) {
  pugi::xml_node view = xml::child(xml::child(worksheet, "sheetViews"), "sheetView");
  if (!view) return;
  pugi::xml_attribute selected = view.attribute("tabSelected");
  if (!selected) selected = view.prepend_attribute("tabSelected");
  selected.set_value("1");
  const std::vector<CellBlock>& selection = sheet.selection();
  if (selection.empty()) return;
  // Frozen or split panes keep several selections; only an unsplit view is rewritten.
  if (xml::child(view, "pane")) return;
  std::string sqref;
  for (const CellBlock& b : selection) {
    if (!sqref.empty()) sqref += ' ';
    sqref += xml::cellName(b.top, b.left);
    if (b.rows() > 1 || b.columns() > 1) sqref += ":" + xml::cellName(b.bottom, b.right);
  }
  const std::string prefix = xml::prefixOf(view);
  while (pugi::xml_node old = xml::child(view, "selection")) view.remove_child(old);
  pugi::xml_node entry = view.prepend_child((prefix + "selection").c_str());
  entry.append_attribute("activeCell").set_value(xml::cellName(selection.front().top, selection.front().left).c_str());
  entry.append_attribute("sqref").set_value(sqref.c_str());
}

}  // namespace

std::string spliceCells(std::string_view sheetXml, std::string_view partName, const InMemoryWorksheet& sheet,
                        const CellBlock& block, StyleSheet& styles, const SpliceOptions& options) {
  pugi::xml_document document = xml::parsePart(sheetXml, partName);
  pugi::xml_node worksheet = document.document_element();
  pugi::xml_node sheetData = xml::child(worksheet, "sheetData");
  if (!sheetData) {
    raise(err::kFileUnwritable, "The part \"" + std::string(partName) + "\" of the original workbook has no sheetData");
  }
  const std::string prefix = xml::prefixOf(worksheet);
  numberRows(sheetData);
  for (std::int32_t r = block.top; r <= block.bottom; ++r) {
    pugi::xml_node row = findOrAddRow(sheetData, r, prefix);
    spliceRow(row, r, sheet, block, styles, prefix);
    // A row that only existed for the block and got nothing goes again; rows of the original
    // (which may carry a height or a style) stay.
    if (!hasCells(row) && !row.first_attribute().next_attribute()) sheetData.remove_child(row);
  }
  growDimension(worksheet, block);
  spliceColumnWidths(worksheet, sheet.geometry(), block.left, block.right, prefix);
  if (options.select) selectView(worksheet, sheet);
  return xml::serialise(document);
}

std::string withoutTabSelected(std::string_view sheetXml) {
  std::string out(sheetXml);
  // Sheet views come before sheetData; the cells are never scanned.
  std::size_t end = out.find("sheetData");
  for (std::size_t at = out.find("tabSelected"); at != std::string::npos && at < end;
       at = out.find("tabSelected", at)) {
    std::size_t start = at;
    while (start > 0 && std::isspace(static_cast<unsigned char>(out[start - 1])) != 0) --start;
    const std::size_t equals = out.find('=', at);
    const std::size_t open = out.find_first_of("\"'", equals);
    const std::size_t close = open == std::string::npos ? open : out.find(out[open], open + 1);
    if (close == std::string::npos) break;
    out.erase(start, close + 1 - start);
    end -= close + 1 - start;
    at = start;
  }
  return out;
}

}  // namespace orv

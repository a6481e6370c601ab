#include "xlsx/reader_sheet.h"

#include <memory>

#include "xlsx/reader_sheet_scanner.h"

namespace orv {

void readSheetXml(std::string_view xml, InMemoryWorksheet& sheet, const SheetReadOptions& options) {
  SheetXmlStream stream(sheet, options);
  stream.feed(xml);
  stream.finish();
}

SheetXmlStream::SheetXmlStream(InMemoryWorksheet& sheet, const SheetReadOptions& options)
    : scanner_(std::make_unique<detail::SheetScanner>(sheet, options)) {}

SheetXmlStream::~SheetXmlStream() = default;

void SheetXmlStream::feed(std::string_view piece) { scanner_->feed(piece); }

void SheetXmlStream::finish() { scanner_->finish(); }

}  // namespace orv

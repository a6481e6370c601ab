#pragma once
// The edit of an existing package behind writeIntoPackage (writer_workbook.h), in the order its
// phases run: the receiving sheets get their cells, the model's new sheets are appended, the
// written sheets get their charts, the previously selected sheet is deselected when a written
// sheet becomes the selected tab, and the bookkeeping parts (workbook, its rels, content types,
// app titles, styles) follow. Only edited parts are put back into `zip`.

#include <vector>

#include "xlsx/writer_workbook.h"

namespace orv {

class ZipPackage;

void editPackage(ZipPackage& zip, InMemoryWorkbook& book, const std::vector<SheetChange>& changes);

}  // namespace orv

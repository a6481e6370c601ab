#pragma once
// What the user has selected in a spreadsheet document's view, as the reference text an input
// field takes: "Data!$A$1:$C$13", several areas joined by commas ("Data!$A$1:$A$9,$C$1:$C$9").
// A single cell stands for the block of data around it (its current region: the cells up to the
// first empty row and column on every side), so that a cursor placed in a table names the table.
// Empty when the selection is no cells (a chart, a drawing) or the view cannot say.

#include <com/sun/star/frame/XModel.hpp>

#include <string>

namespace orv::extension {

std::string selectionReference(const css::uno::Reference<css::frame::XModel>& document);

}  // namespace orv::extension

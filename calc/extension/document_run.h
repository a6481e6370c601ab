#pragma once
// A command run on an open spreadsheet document inside the office: the live host over the
// office's own component context (calc/calc_application.h), the document attached as the active
// workbook, the component attached to that host for the run, and the host's pending cells and
// charts sent once the run ends, after a failure too (what the component wrote before failing
// stays, as on any host).
//
// The run is one undo step of the document, titled as the command's dialog, so that one Undo
// takes the whole result away again. Only one run at a time: the component's host session is
// one per process, so a second run asked for while one is under way fails at once with a
// sentence saying so.

#include <com/sun/star/frame/XModel.hpp>
#include <com/sun/star/uno/XComponentContext.hpp>

#include "calc/extension/command_run.h"

namespace orv::extension {

RunOutcome runOnDocument(const css::uno::Reference<css::uno::XComponentContext>& context,
                         const css::uno::Reference<css::frame::XModel>& document, Command command,
                         const OptionValues& values);

}  // namespace orv::extension

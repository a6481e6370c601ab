#pragma once
// HostConstants: the host's enumeration values by meaning, so the analyses hold none themselves.

#include "frame/chart.h"
#include "frame/range.h"

namespace orv {

struct HostConstants {
  // Results blocks are pasted with values and formats, so labels stay bold and numbers keep
  // their formats in the user's sheet. The results sheet has no fill, so nothing else travels.
  static constexpr orv::PasteType PasteType() { return orv::PasteType::All; }

  // Charts.
  static constexpr host::RowCol SeriesInColumns() { return host::RowCol::Columns; }
  static constexpr host::ChartType StockOHLC() { return host::ChartType::StockOHLC; }
  static constexpr host::ChartType LineMarkers() { return host::ChartType::LineMarkers; }
  static constexpr host::AxisType ValueAxis() { return host::AxisType::Value; }
  static constexpr host::AxisType CategoryAxis() { return host::AxisType::Category; }
  static constexpr host::AxisGroup PrimaryGroup() { return host::AxisGroup::Primary; }
  static constexpr host::AxisGroup SecondaryGroup() { return host::AxisGroup::Secondary; }
  static constexpr host::BorderWeight ThinBorder() { return host::BorderWeight::Thin; }
  static constexpr host::LineStyle NoLine() { return host::LineStyle::None; }
  // PlotArea.Fill.Visible: the plot area is left unfilled.
  static constexpr host::TriState FillHidden() { return host::TriState::False; }
  static constexpr host::TickMark TickMarksOutside() { return host::TickMark::Outside; }
  static constexpr host::ErrorBarDirection VerticalBars() { return host::ErrorBarDirection::Y; }
  static constexpr host::ErrorBarInclude BarsBothWays() { return host::ErrorBarInclude::Both; }
  static constexpr host::ErrorBarType CustomAmounts() { return host::ErrorBarType::Custom; }
  static constexpr host::EndStyle CappedEnds() { return host::EndStyle::Cap; }
};

}  // namespace orv

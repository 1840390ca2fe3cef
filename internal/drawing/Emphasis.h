#pragma once

namespace internal
{
/// What tells something from its likes, by colours of the scheme.

/// Of a selected row's own ground; the rest is the selection's colour.
constexpr double k_SelectedRowShare = 0.67;

/// Added to each channel of the selection's colour where it is the ground of a default button or of
/// a selected item, and of the ink on it.
/// @{
constexpr int k_DefaultGroundLift = 20;
constexpr int k_DefaultInkLift = -20;
/// @}
} // namespace internal

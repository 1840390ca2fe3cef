#pragma once

#include "monitor/FarmJob.h"

#include "appearance/wxTolvanColors.h"

#include <vector>

class wxSizer;
class wxtStaticText;

/// Names and values: short values in two columns, long ones below them over the whole width.
class JobDetails : public wxtPanel
{
public:
    explicit JobDetails(wxWindow* parent);

    /// Whether the names are others than before, so that the panel may need another height.
    bool Show(const std::vector<DetailRow>& rows);
    using wxtPanel::Show;

private:
    void Build(const std::vector<DetailRow>& rows);
    void AddRow(wxSizer& grid, const DetailRow& row, int nameWidth);

    std::vector<DetailRow>      m_Rows; ///< As shown.
    std::vector<wxtStaticText*> m_Values;
};

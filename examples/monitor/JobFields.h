#pragma once

#include "monitor/JobForm.h"

#include "appearance/wxtScrolledPane.h"

#include <vector>

class wxFlexGridSizer;
class wxSizer;

/// One row for each parameter of a job type: what it is and a field for its value.
class JobFields : public wxtScrolledPane
{
public:
    static constexpr int k_Gap = 6; ///< Pixels between labels, fields and rows.

    explicit JobFields(wxWindow* parent);

    /// How wide the form's labels want to be, within reason; pixels.
    int LabelWidth(const JobForm& form) const;
    /// Shows the form's parameters, replacing those of another, with labels of that width.
    void ShowForm(const JobForm& form, int labelWidth);
    /// Moves what the user has entered into the form that was shown.
    void TakeValues(JobForm& form) const;
    /// Moves the focus to the field of the parameter with that index.
    void FocusField(int index) const;

private:
    void      AddRow(wxFlexGridSizer& grid, const JobParamInfo& info, const String& value,
                     int labelWidth);
    wxWindow* NewField(const JobParamInfo& info, const String& value);
    wxSizer*  WithBrowse(wxWindow* field, const JobParamInfo& info);

    std::vector<wxWindow*> m_Fields; ///< Text controls and choices, one a parameter.
};

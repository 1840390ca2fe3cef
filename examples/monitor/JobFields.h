#pragma once

#include "monitor/JobForm.h"

#include "common/ScrolledPane.h"

#include <vector>

class wxFlexGridSizer;

/// One row for each parameter of a job type: its name and a field for its value.
class JobFields : public ScrolledPane
{
public:
    explicit JobFields(wxWindow* parent);

    /// Shows the form's parameters, replacing those of another.
    void ShowForm(const JobForm& form);
    /// Moves what the user has entered into the form that was shown.
    void TakeValues(JobForm& form) const;
    /// Moves the focus to the field of the parameter with that index.
    void FocusField(int index) const;

private:
    void      AddRow(wxFlexGridSizer& grid, const JobParamInfo& info, const String& value);
    wxWindow* NewField(const JobParamInfo& info, const String& value);

    std::vector<wxWindow*> m_Fields; ///< Text controls and choices, one a parameter.
};

#pragma once

#include "appearance/wxtCheckBox.h"

/// The user's choice of how logs look, kept and shown by all logs of the program when the dialog
/// that it is in is confirmed.
class LogLookChoice : public wxtCheckBox
{
public:
    explicit LogLookChoice(wxWindow* parent);

    bool TransferDataFromWindow() override;
};

#pragma once

#include "appearance/wxtCheckBox.h"

/// How the user wants logs to look: whether selected lines are to be readable, which the scheme's
/// own colours do not promise.
class LogLook
{
public:
    static bool IsSelectionReadable(); ///< Without a choice of the user it is.
    static void SetSelectionReadable(bool on);
};

/// The user's choice, kept and shown by all logs of the program when the dialog that it is in is
/// confirmed.
class LogLookChoice : public wxtCheckBox
{
public:
    explicit LogLookChoice(wxWindow* parent);

    bool TransferDataFromWindow() override;
};

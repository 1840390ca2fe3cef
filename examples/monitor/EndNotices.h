#pragma once

#include "monitor/FarmJobs.h"

#include "appearance/wxtCheckBox.h"

#include <functional>

/// Tells the user by a notice of the desktop when jobs of theirs have ended, unless they don't want
/// it or look at the program anyway.
class EndNotices : private HasSlots
{
public:
    /// `jobs` must outlive it. `isLookedAt`: whether a window of the program is the active one.
    EndNotices(FarmJobs& jobs, std::function<bool()> isLookedAt);
    ~EndNotices() { DisconnectAll(); }

    static bool AreWanted(); ///< Without a choice of the user they are.

private:
    void OnNews(const FarmJobs::News& news);

    FarmJobs&             m_Jobs;
    std::function<bool()> m_IsLookedAt;
};

/// The user's choice, kept when the dialog that it is in is confirmed.
class NoticeChoice : public wxtCheckBox
{
public:
    explicit NoticeChoice(wxWindow* parent);

    bool TransferDataFromWindow() override;
};

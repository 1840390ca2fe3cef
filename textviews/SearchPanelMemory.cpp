#include "appearance/wxTolvanString.h"
#include "textviews/search/SearchField.h"
#include "textviews/search/SearchHistory.h"
#include "textviews/wxTextLineSearchPanel.h"
#include "vesta/Application.h"

namespace
{
const char* const kSection = "TextSearch";
const char* const kMarkAll = "MarkAll";
const char* const kAsYouType = "AsYouType";
const char* const kOnlyMatching = "OnlyMatchingLines";
const char* const kText = "Text"; // with a number from 1 on, the latest first

// A program may have none.
OptionsFile* Options()
{
    return Application::the_Application ? &Application::the_Application->Options() : nullptr;
}

String KeyOf(size_t index)
{
    return kText + String::FromInt(static_cast<int>(index) + 1);
}

std::vector<String> SavedTexts(const OptionsFile& options)
{
    std::vector<String> texts;
    for (size_t i = 0; i < textviews::SearchHistory::k_Most; ++i)
    {
        const String text = options.GetValue(kSection, KeyOf(i));
        if (!text.empty())
        {
            texts.push_back(text);
        }
    }
    return texts;
}
} // namespace

// Another view of the program, or an earlier run, may have changed it.
void wxTextLineSearchPanel::Recall()
{
    if (const OptionsFile* const options = Options())
    {
        m_MarkAll->SetValue(options->GetBool(kSection, kMarkAll, GetMarkAll()));
        m_AsYouType->SetValue(options->GetBool(kSection, kAsYouType, GetAsYouType()));
        m_History->Set(SavedTexts(*options));
        if (OffersOnlyMatching())
        {
            SetOnlyMatching(options->GetBool(kSection, kOnlyMatching, GetOnlyMatching()));
        }
    }
}

// What the user has chosen.
void wxTextLineSearchPanel::Remember()
{
    if (OptionsFile* const options = Options())
    {
        options->SetValue(kSection, kMarkAll, GetMarkAll() ? "1" : "0");
        options->SetValue(kSection, kAsYouType, GetAsYouType() ? "1" : "0");
        if (OffersOnlyMatching())
        {
            options->SetValue(kSection, kOnlyMatching, GetOnlyMatching() ? "1" : "0");
        }
    }
}

void wxTextLineSearchPanel::RememberText()
{
    OptionsFile* const options = Options();
    if (options)
    {
        m_History->Set(SavedTexts(*options)); // other views have theirs
    }
    m_History->Add(wxtFromWx(GetText()));
    if (options)
    {
        const OptionsFile::PauseAutoWrite together(*options);
        const std::vector<String>&        texts = m_History->Texts();
        for (size_t i = 0; i < texts.size(); ++i)
        {
            options->SetValue(kSection, KeyOf(i), texts[i]);
        }
    }
}

// False: it is another key.
bool wxTextLineSearchPanel::WalkHistory(int key)
{
    if ((key != WXK_UP && key != WXK_DOWN) || !m_Field->HasFocus())
    {
        return false;
    }
    const String shown = wxtFromWx(GetText());
    const String text = key == WXK_UP ? m_History->Older(shown) : m_History->Newer(shown);
    if (text != shown)
    {
        m_Field->SetValue(wxtToWx(text));
        m_Field->SetInsertionPointEnd();
    }
    return true;
}

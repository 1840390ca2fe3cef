#include "monitor/SubmitDlg.h"

#include "monitor/FarmJob.h"
#include "monitor/JobFields.h"

#include "appearance/wxTolvanString.h"
#include "appearance/wxtStockControls.h"
#include "appearance/wxtTextCtrl.h"
#include "jobwidgets/ProductChoice.h"
#include "tolvan/JobFactory.h"
#include "vesta/Application.h"
#include "vesta/UID.h"

#include <wx/sizer.h>

#include <algorithm>
#include <utility>

namespace
{
constexpr int     kBorder = 12;              // pixels around the dialog's content
constexpr int     kGap = 6;                  // pixels between its parts
constexpr int     kFieldsWidth = 66;         // characters at first
constexpr int     kMostFieldsHeight = 350;   // pixels at first; the user may make it larger
constexpr size_t  kMostDescription = 300;    // characters
const wxSize      kSmallestFields(240, 120); // pixels
const char* const kPositionName = "SubmitJob";
const char* const kProductKey = "Product";

// The product that was submitted last.
UID LastProduct()
{
    return UID(Application::the_Application->Options().GetValue(kPositionName, kProductKey));
}

wxtStaticText* AddHeadRow(wxTolvanDlg& dialog, wxFlexGridSizer& grid, const wxString& label,
                          wxWindow* field)
{
    wxtStaticText* const text = dialog.NewStatic(label);
    grid.Add(text, 0, wxALIGN_CENTER_VERTICAL);
    grid.Add(field, 0, wxEXPAND);
    return text;
}
} // namespace

SubmitDlg::SubmitDlg(wxWindow* parent, Job::Sender send)
    : SubmitDlg(parent, std::move(send), wxGetTranslation("Submit Job"), nullptr)
{
}

SubmitDlg::SubmitDlg(wxWindow* parent, Job::Sender send, const JobForm& form)
    : SubmitDlg(parent, std::move(send), wxGetTranslation("Submit Job Again"), &form)
{
}

SubmitDlg::SubmitDlg(wxWindow* parent, Job::Sender send, const wxString& title, const JobForm* form)
    : wxTolvanDlg(parent, title, kPositionName, true), m_Send(std::move(send))
{
    if (form)
    {
        m_Form = &m_Forms.emplace(form->Type().Id(), *form).first->second;
    }
    auto* const content = new wxBoxSizer(wxVERTICAL);
    BuildHead(*content);
    content->Add(NewStaticLine(wxGetTranslation("Parameters ")), 0, wxEXPAND | wxTOP | wxBOTTOM,
                 kGap);
    m_Fields = new JobFields(this);
    content->Add(m_Fields, 1, wxEXPAND);
    m_Problem = NewOneLine(color_TextRed);
    content->Add(m_Problem, 0, wxEXPAND | wxTOP, kGap);
    wxBoxSizer* const whole = StartControls();
    whole->Add(content, 1, wxEXPAND | wxLEFT | wxRIGHT | wxTOP, kBorder);
    AddButtonRow(whole, kBorder);
    FindWindow(wxID_OK)->SetLabel(wxGetTranslation("Submit"));
    if (form)
    {
        ShowForm();
    }
    else
    {
        m_Product->SetSelectedProduct(LastProduct());
    }
    if (!m_Form)
    {
        ShowProduct();
    }
    // The user may make it smaller than it is at first.
    m_Fields->SetMinSize(kSmallestFields);
    SetMinSize(ClientToWindowSize(whole->GetMinSize()));
    m_Fields->SetMinSize(wxSize(kFieldsWidth * GetCharWidth(), FirstFieldsHeight()));
    Fit(); // laid out in the toolkit's first size, the parameters would have no room at all
}

// So that every product fits, unless one has very many parameters.
int SubmitDlg::FirstFieldsHeight() const
{
    size_t most = m_Form ? m_Form->values.size() : 1;
    for (unsigned int i = 0; m_Product && i < m_Product->GetCount(); ++i)
    {
        const UID product = m_Product->GetProduct(static_cast<int>(i));
        if (const auto type = JobFactory::s_JobFactory->GetTypeInfo(product, false))
        {
            most = std::max(most, static_cast<size_t>(type->ParamCount()));
        }
    }
    // A text field with wide margins: it does not know its own height before it is shown.
    const int rowHeight = m_Name->GetCharHeight() * 5 / 2 + kGap;
    return std::min(static_cast<int>(most) * rowHeight, kMostFieldsHeight);
}

void SubmitDlg::BuildHead(wxBoxSizer& sizer)
{
    auto* const grid = new wxFlexGridSizer(2, JobFields::k_Gap, JobFields::k_Gap);
    grid->AddGrowableCol(1);
    m_Label = AddHeadRow(*this, *grid, wxGetTranslation("Product"), NewProduct());
    grid->AddSpacer(0);
    m_Description = NewOneLine(color_TextGrey);
    grid->Add(m_Description, 0, wxEXPAND);
    m_Name = new wxtTextCtrl(this, wxID_ANY);
    m_Name->AutoComplete(nullptr); // a name is no word of the farm's
    AddHeadRow(*this, *grid, wxGetTranslation("Name"), m_Name);
    m_Priority = new wxtTextCtrl(this, wxID_ANY);
    m_Priority->SetToolTip(
        wxGetTranslation("From 0 to 100: jobs of a higher priority start first"));
    AddHeadRow(*this, *grid, wxGetTranslation("Priority"), m_Priority);
    sizer.Add(grid, 0, wxEXPAND);
}

// A choice, or the name of the one that is given, which need not be among those to choose from.
wxWindow* SubmitDlg::NewProduct()
{
    if (m_Form)
    {
        wxtStaticText* const name = NewOneLine(color_Text);
        name->SetLabelText(wxtToWx(OneLine(m_Form->Type().Name(), kMostDescription)));
        return name;
    }
    m_Product = new ProductChoice(this, wxID_ANY);
    m_Product->Bind(wxEVT_COMBOBOX,
                    [this](wxCommandEvent& event)
                    {
                        event.Skip();
                        ShowProduct();
                    });
    return m_Product;
}

// The labels of the whole dialog are in one column.
int SubmitDlg::AlignLabels(const JobForm& form)
{
    int width = m_Fields->LabelWidth(form);
    for (const char* const label : {"Product", "Name", "Priority"})
    {
        width = std::max(width, GetTextExtent(wxGetTranslation(label)).x + 1);
    }
    m_Label->SetMinSize(wxSize(width, -1));
    return width;
}

// A text that is cut where there is no more room for it.
wxtStaticText* SubmitDlg::NewOneLine(const String& colourName)
{
    wxtStaticText* const text =
        NewStatic(wxString(), false, false, 0, wxST_NO_AUTORESIZE | wxST_ELLIPSIZE_END);
    text->m_ForegroundName = colourName;
    text->KeepReadable();
    text->SetMinSize(wxSize(1, -1));
    return text;
}

JobForm* SubmitDlg::FormOf(const UID& product)
{
    const auto known = m_Forms.find(product);
    if (known != m_Forms.end())
    {
        return &known->second;
    }
    const auto type = JobFactory::s_JobFactory->GetTypeInfo(product, true);
    return type ? &m_Forms.emplace(product, type).first->second : nullptr;
}

void SubmitDlg::ShowProduct()
{
    const UID      product = m_Product->GetProduct(m_Product->GetSelection());
    JobForm* const form = FormOf(product);
    if (form)
    {
        TakeForm();
        m_Form = form;
        ShowForm();
    }
    else if (m_Form)
    {
        // Its file has been taken away while the dialog was open.
        m_Product->SetSelectedProduct(m_Form->Type().Id());
        ShowProblem("The product is no longer installed.");
    }
    else
    {
        ShowProblem("No product is installed, or all are hidden in the preferences.");
    }
}

void SubmitDlg::ShowForm()
{
    const JobForm& form = *m_Form;
    m_Description->SetLabelText(wxtToWx(OneLine(form.Type().Description(), kMostDescription)));
    m_Name->ChangeValue(wxtToWx(form.name));
    m_Name->SetHint(wxtToWx(OneLine(form.Type().Name(), kMostDescription)));
    m_Priority->ChangeValue(wxtToWx(form.priority));
    m_Fields->ShowForm(form, AlignLabels(form));
    ShowProblem(String());
    if (IsShown()) // before, it has no size to speak of
    {
        Layout();
    }
}

void SubmitDlg::TakeForm()
{
    if (!m_Form)
    {
        return;
    }
    JobForm& form = *m_Form;
    form.name = wxtFromWx(m_Name->GetValue());
    form.priority = wxtFromWx(m_Priority->GetValue());
    m_Fields->TakeValues(form);
}

bool SubmitDlg::Validate()
{
    if (!m_Form)
    {
        return false;
    }
    TakeForm();
    int          field = JobForm::kNone;
    const String problem = m_Form->FindProblem(field);
    ShowProblem(problem);
    FocusField(problem.empty() ? JobForm::kNone : field);
    return problem.empty();
}

void SubmitDlg::FocusField(int field)
{
    if (field == JobForm::kName)
    {
        m_Name->SetFocus();
    }
    else if (field == JobForm::kPriority)
    {
        m_Priority->SetFocus();
    }
    else if (field != JobForm::kNone)
    {
        m_Fields->FocusField(field);
    }
}

bool SubmitDlg::TransferDataFromWindow()
{
    const JobForm& form = *m_Form;
    if (!m_Send(form.ToMessage(UID::Create().ToString())))
    {
        ShowProblem("The master cannot be reached; the job was not submitted.");
        return false;
    }
    Application::the_Application->Options().SetValue(kPositionName, kProductKey,
                                                     form.Type().Id().ToString());
    return true;
}

void SubmitDlg::OnConnected(bool connected)
{
    ShowProblem(connected ? String() : String("The connection to the master is lost."));
}

void SubmitDlg::ShowProblem(const String& text)
{
    const wxString shown = wxGetTranslation(wxtToWx(text));
    m_Problem->SetLabelText(shown);
    m_Problem->SetToolTip(shown);
}

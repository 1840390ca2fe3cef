#include "tests/jobwidgets/JobWidgetsTest.h"
#include "tests/support/EventCounter.h"

#include "jobwidgets/ProductChoice.h"
#include "vesta/Application.h"

namespace
{
class ProductChoiceTest : public JobWidgetsTest
{
protected:
    ProductChoice* NewChoice() { return new ProductChoice(Frame(), 77); }

    static void Hide(const UID& id, const String& value)
    {
        Application::the_Application->Options().SetValue("Hide Products", id.ToString(), value);
    }
    static wxString Names(const ProductChoice& choice) { return wxJoin(choice.GetStrings(), '|'); }

    DialogCatcher m_Box;
};
} // namespace

TEST_F(ProductChoiceTest, ListsTheVisibleTypesByName)
{
    const UID beta = AddType("a", "beta");
    const UID alpha = AddType("b", "Alpha");
    AddType("c", "ALPHA"); // the factory lists it later
    const UID gone = AddType("d", "Gone");
    AddType("e", "gamma & \xff");
    Hide(gone, "1");
    Hide(beta, "0");

    const ProductChoice& choice = *NewChoice();
    EXPECT_EQ(wxString::FromUTF8("Alpha|beta|gamma & \xc3\xbf"), Names(choice));
    EXPECT_EQ(0, choice.GetSelection());
    EXPECT_EQ(alpha, choice.GetProduct(0));
    EXPECT_EQ(beta, choice.GetProduct(1));
    EXPECT_TRUE(choice.GetProduct(-1).IsNull());
    EXPECT_TRUE(choice.GetProduct(3).IsNull());
    EXPECT_EQ(0, m_Box.count);
}

TEST_F(ProductChoiceTest, TellsOnceThatThereIsNone)
{
    Hide(AddType("a", "A"), "yes");
    ProductChoice& choice = *NewChoice();
    EXPECT_EQ(1, m_Box.count);
    EXPECT_EQ("None Installed", Names(choice));
    EXPECT_TRUE(choice.GetProduct(0).IsNull());
    const EventCounter events(&choice, wxEVT_COMBOBOX);
    choice.SetSelectedProduct(UID::Null);
    EXPECT_EQ(0, events.Count());
}

TEST_F(ProductChoiceTest, SelectsAProductAsTheUserWould)
{
    AddType("a", "A");
    const UID      second = AddType("b", "B");
    ProductChoice& choice = *NewChoice();
    EventCounter   picks(Frame(), wxEVT_COMBOBOX); // it has come up from the control
    choice.SetSelectedProduct(UID::Create());
    EXPECT_EQ(0, choice.GetSelection());
    EXPECT_EQ(0, picks.Count());

    choice.SetSelectedProduct(second);
    EXPECT_EQ(1, choice.GetSelection());
    ASSERT_EQ(1, picks.Count());
    const auto& event = dynamic_cast<const wxCommandEvent&>(*picks.Last());
    EXPECT_EQ(77, event.GetId());
    EXPECT_EQ(1, event.GetInt());
    EXPECT_EQ("B", event.GetString());
    EXPECT_EQ(choice.GetClientObject(1), event.GetClientObject());
    choice.Delete(0); // its data goes with it
    EXPECT_EQ(second, choice.GetProduct(0));
}

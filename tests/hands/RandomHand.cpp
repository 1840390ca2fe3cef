// A hand that does anything: random input of a seed to a program, and to nothing else on the
// display. It fails when the program ends otherwise than asked, does not answer, says what no
// program should, or shows colours that are not the scheme's.
#include "tests/hands/Hand.h"
#include "tests/hands/Patient.h"
#include "tests/hands/ScreenView.h"
#include "tests/hands/StrangeTheme.h"

#include <cstdlib>
#include <deque>
#include <iostream>
#include <random>

namespace
{
const char* const kUsage =
    "usage: random_hand [--seed N] [--seconds N] [--master PROGRAM] PROGRAM [ARGUMENT...]\n"
    "The program runs in a scratch folder, and with a master of its own when one is named.\n";

constexpr int    kAnswerMs = 30000; // a sanitized program on a busy machine
constexpr int    kColourMs = 5000;  // within which all windows have got the scheme
constexpr int    kBetweenLooks = 8; // deeds
constexpr int    kByChance = 10;    // pixels, in the dialogs for colours
constexpr size_t kRemembered = 40;  // deeds, told of when something goes wrong

const char* const kKeys[] = {
    "Tab",       "Tab",        "shift+Tab", "Return",    "space",    "Escape",    "Up",
    "Down",      "Left",       "Right",     "Home",      "End",      "Prior",     "Next",
    "F3",        "F4",         "F5",        "F6",        "F10",      "F11",       "shift+F10",
    "Delete",    "ctrl+a",     "ctrl+c",    "ctrl+f",    "ctrl+n",   "ctrl+s",    "ctrl+v",
    "ctrl+x",    "ctrl+q",     "ctrl+z",    "BackSpace", "alt+Down", "ctrl+Home", "ctrl+End",
    "ctrl+Next", "ctrl+Prior", "alt+Up",    "alt+j",     "alt+v",    "ctrl+l",    "ctrl+g",
    "ctrl+F2",   "F2",         "shift+F2"};
// Neither separators nor dots: a typed name stays in the scratch folder.
const char* const kWords[] = {"Orbit",   "1",        "70",  "abc",       "W",
                              "FRAME 3", "not here", "x-y", "state:run", "50%"};

const char* const kDeeds[] = {"click",        "click",   "click", "click",
                              "double click", "context", "wheel", "drag"};

class RandomHand
{
public:
    RandomHand(Patient& patient, unsigned seed) : m_Patient(patient), m_Random(seed) {}

    /// What went wrong, or nothing.
    std::string Play(int seconds);
    void        TellDeeds() const;

private:
    int  Below(int limit) { return std::uniform_int_distribution<int>(0, limit - 1)(m_Random); }
    void Note(const std::string& deed);
    void Step();
    void NameAFile();
    void PlayByPointer(const ScreenView::Found& window);
    void PlayByKeys();
    void Drag(const ScreenView::Found& window);
    bool Answers();
    bool HasItsColours();
    std::string Look(int deeds);

    Patient&                m_Patient;
    std::mt19937            m_Random;
    Hand                    m_Hand;
    ScreenView              m_Screen{m_Hand.Display(), [this] { return m_Patient.Id(); }};
    std::deque<std::string> m_Deeds;
};

void RandomHand::Note(const std::string& deed)
{
    m_Deeds.push_back(deed);
    if (m_Deeds.size() > kRemembered)
    {
        m_Deeds.pop_front();
    }
}

void RandomHand::TellDeeds() const
{
    for (const std::string& deed : m_Deeds)
    {
        std::cerr << "  " << deed << "\n";
    }
}

void RandomHand::Step()
{
    const auto windows = m_Screen.Windows();
    if (windows.empty())
    {
        return;
    }
    // Menus and lists that have dropped down are the last ones: they are what a user turns to.
    const auto& window = windows[Below(2) == 0 ? windows.size() - 1
                                               : size_t(Below(static_cast<int>(windows.size())))];
    const int   kind = Below(100);
    if (m_Screen.HasFileDialog())
    {
        NameAFile();
    }
    else if (kind < 3)
    {
        Note("resize");
        m_Screen.Resize(window.id, 100 + Below(1100), 60 + Below(850));
    }
    else if (kind < 60)
    {
        PlayByPointer(window);
    }
    else if (m_Screen.HasKeys())
    {
        PlayByKeys();
    }
    else
    {
        Note("activate");
        m_Screen.Activate(windows.front().id);
    }
}

// Nobody knows where the pointer would lead in the dialogs for files: only a name is typed there.
void RandomHand::NameAFile()
{
    Note("name a file");
    if (m_Screen.HasKeys())
    {
        m_Hand.Key(Below(2) == 0 ? "a" : "b");
        m_Hand.Key(Below(3) == 0 ? "Return" : "Escape");
    }
}

void RandomHand::PlayByPointer(const ScreenView::Found& window)
{
    const int x = window.x + Below(window.width);
    const int y = window.y + Below(window.height);
    if (!m_Screen.Takes(x, y))
    {
        return;
    }
    m_Hand.Move(x, y);
    const int kind = Below(std::size(kDeeds));
    Note(std::to_string(x) + "," + std::to_string(y) + " " + kDeeds[kind]);
    if (kind < 5)
    {
        m_Hand.Clicks(1, kind < 4 ? 1 : 2 + Below(2));
    }
    else if (kind == 5)
    {
        m_Hand.Clicks(3, 1);
    }
    else if (kind == 6)
    {
        for (int i = 1 + Below(6), down = Below(2); i > 0; --i)
        {
            m_Hand.Notch(down == 0);
        }
    }
    else
    {
        Drag(window);
    }
}

// What was pressed keeps the pointer until it is let go.
void RandomHand::Drag(const ScreenView::Found& window)
{
    m_Hand.Button(1, true);
    for (int i = 1 + Below(5); i > 0; --i)
    {
        m_Hand.Move(window.x + Below(window.width), window.y + Below(window.height));
        Answers();
    }
    m_Hand.Button(1, false);
}

void RandomHand::PlayByKeys()
{
    std::vector<std::string> keys;
    const int                kind = Below(8);
    if (kind == 0)
    {
        for (const char letter : std::string(kWords[Below(std::size(kWords))]))
        {
            keys.push_back(letter == ' '   ? "space"
                           : letter == '-' ? "minus"
                                           : std::string(1, letter));
        }
    }
    else if (kind == 1) // a menu
    {
        keys.assign(1, "F10");
        keys.insert(keys.end(), static_cast<size_t>(Below(6)), "Right");
        keys.insert(keys.end(), static_cast<size_t>(Below(8)), "Down");
        keys.push_back(Below(4) == 0 ? "Escape" : "Return");
    }
    else
    {
        keys.push_back(kKeys[Below(std::size(kKeys))]);
    }
    for (const std::string& key : keys)
    {
        Note(key);
        m_Hand.Key(key);
    }
}

// Whether the program does something with its events, or has ended.
bool RandomHand::Answers()
{
    return WaitUntil(kAnswerMs,
                     [this]
                     {
                         const auto windows = m_Screen.Windows();
                         return m_Patient.HasEnded() ||
                                (!windows.empty() && m_Screen.Ask(windows.front().id, 1000));
                     });
}

// A window that has just come may not be drawn yet, and a scheme that has just been chosen neither.
bool RandomHand::HasItsColours()
{
    return WaitUntil(kColourMs, [this] { return m_Screen.Count(StrangeTheme::Has) < kByChance; });
}

// What is wrong with the program; nothing when all is well.
std::string RandomHand::Look(int deeds)
{
    if (!Answers())
    {
        return "it does not answer";
    }
    return deeds % kBetweenLooks == 0 && !HasItsColours() ? "it shows the theme's colours"
                                                          : m_Patient.Fault();
}

std::string RandomHand::Play(int seconds)
{
    const auto  end = Clock::now() + std::chrono::seconds(seconds);
    int         deeds = 0;
    std::string fault;
    for (; fault.empty() && Clock::now() < end; ++deeds)
    {
        fault = Look(deeds);
        if (fault.empty() && m_Patient.HasEnded()) // its menus lead there too
        {
            fault = m_Patient.Fault();
            if (!fault.empty())
            {
                break; // with what it said
            }
            Note("start");
            m_Patient.Start();
        }
        Step();
    }
    std::cout << deeds << " deeds\n";
    if (!fault.empty())
    {
        return fault;
    }
    return m_Patient.End(kAnswerMs) ? m_Patient.Fault() : "it does not end when asked";
}
} // namespace

int main(int argc, char** argv)
{
    unsigned seed = std::random_device()();
    int      seconds = 60;
    String   master;
    int      at = 1;
    for (; at + 1 < argc && argv[at][0] == '-'; at += 2)
    {
        const std::string option = argv[at];
        seed = option == "--seed" ? static_cast<unsigned>(std::stoul(argv[at + 1])) : seed;
        seconds = option == "--seconds" ? std::stoi(argv[at + 1]) : seconds;
        master = option == "--master" ? argv[at + 1] : master;
    }
    if (at >= argc)
    {
        std::cerr << kUsage;
        return EXIT_FAILURE;
    }
    std::cout << "seed " << seed << std::endl;
    Patient           patient({argv + at, argv + argc}, master);
    RandomHand        hand(patient, seed);
    const std::string fault = hand.Play(seconds);
    if (!fault.empty())
    {
        std::cerr << "seed " << seed << ": " << fault << "\nthe last deeds:\n";
        hand.TellDeeds();
        std::cerr << "what was said:\n" << patient.Said() << "\n";
    }
    return fault.empty() ? EXIT_SUCCESS : EXIT_FAILURE;
}

// tolvan-render: a small ray tracer that renders the frames of an animation to PNG files. A job of
// the demo farm: one line a frame on the standard output, which the master reads its progress from.

#include "master/Numbers.h"
#include "master/job-programs/render/PngWriter.h"
#include "master/job-programs/render/Scene.h"
#include "master/job-programs/render/Tracer.h"
#include "vesta/CommandLine.h"
#include "vesta/Exception.h"
#include "vesta/File.h"
#include "vesta/Time.h"

#include <cstdio>

namespace
{

constexpr int kLastFrame = 9999; // the file names have four digits
constexpr int kLargest = 8192;   // pixels
constexpr int kMostSamples = 4096;

const char* const kHelp =
    "tolvan-render: renders the frames of a small animation to PNG files.\n"
    "\n"
    "  --scene NAME     \"orbit\" (default) or \"bounce\"\n"
    "  --first N        first frame (1)\n"
    "  --last N         last frame (60)\n"
    "  --loop N         frames until the animation begins again (the last frame)\n"
    "  --width PIXELS   width (480)\n"
    "  --height PIXELS  height (270)\n"
    "  --samples N      rays a pixel (8)\n"
    "  --output FOLDER  where frame_0001.png ... are written (the current folder)\n"
    "\n"
    "After each frame a line \"FRAME n/m\" tells how many frames of how many are done.\n";

struct Settings
{
    String scene = "orbit";
    String output = ".";
    int    first = 1;
    int    last = 60;
    int    loop = 0;
    int    width = 480;
    int    height = 270;
    int    samples = 8;
};

struct NumberOption
{
    const char* name;
    int         most;
    int&        value;
};

bool ReadSettings(const CommandLine& commandLine, Settings& settings)
{
    settings.scene = commandLine.Value("scene", settings.scene);
    settings.output = commandLine.Value("output", settings.output);
    const NumberOption numbers[] = {
        {"first", kLastFrame, settings.first}, {"last", kLastFrame, settings.last},
        {"loop", kLastFrame, settings.loop},   {"width", kLargest, settings.width},
        {"height", kLargest, settings.height}, {"samples", kMostSamples, settings.samples}};
    for (const NumberOption& option : numbers)
    {
        const String wrong = master::ReadNumber(commandLine, option.name, 1, option.most, option.value);
        if (!wrong.empty())
        {
            std::fprintf(stderr, "%s\n", wrong.c_str());
            return false;
        }
    }
    if (settings.last < settings.first)
    {
        std::fprintf(stderr, "The last frame (%d) lies before the first (%d)\n", settings.last,
                     settings.first);
        return false;
    }
    if (settings.loop == 0)
    {
        settings.loop = settings.last;
    }
    return true;
}

double SecondsSince(const Time& begin)
{
    return static_cast<double>((Time::CurrentTime() - begin).ToMicroseconds()) / 1e6;
}

bool RenderFrame(const Settings& settings, int frame)
{
    const Time   begin = Time::CurrentTime();
    const double turn = static_cast<double>((frame - 1) % settings.loop) / settings.loop;
    Scene        scene;
    if (!MakeScene(settings.scene.c_str(), turn, scene))
    {
        std::fprintf(stderr, "There is no scene '%s'\n", settings.scene.c_str());
        return false;
    }
    const Picture     picture = Trace(scene, settings.width, settings.height, settings.samples,
                                      static_cast<uint32_t>(frame));
    const String      name = SFormat("frame_%04d.png", frame);
    const std::string failure = WritePng(picture, settings.output + "/" + name);
    if (!failure.empty())
    {
        std::fprintf(stderr, "%s\n", failure.c_str());
        return false;
    }
    std::printf("FRAME %d/%d %s took %.2f s\n", frame - settings.first + 1,
                settings.last - settings.first + 1, name.c_str(), SecondsSince(begin));
    return true;
}

int Render(const Settings& settings)
{
    std::printf("Rendering the scene '%s', frames %d to %d, %d x %d pixels, %d rays a pixel\n",
                settings.scene.c_str(), settings.first, settings.last, settings.width,
                settings.height, settings.samples);
    const Time begin = Time::CurrentTime();
    for (int frame = settings.first; frame <= settings.last; ++frame)
    {
        if (!RenderFrame(settings, frame))
        {
            return 1;
        }
    }
    const int count = settings.last - settings.first + 1;
    std::printf("%d frames in %s\n", count, (Time::CurrentTime() - begin).FormatDuration().c_str());
    return 0;
}

} // namespace

int main(int argc, char** argv)
{
    // A line a frame has to be seen when the frame is done, also through a pipe.
    std::setvbuf(stdout, nullptr, _IOLBF, BUFSIZ);
    const CommandLine commandLine(
        argc, argv, {"scene", "first", "last", "loop", "width", "height", "samples", "output"});
    if (commandLine.Has("help"))
    {
        std::fputs(kHelp, stdout);
        return 0;
    }
    Settings settings;
    if (!ReadSettings(commandLine, settings))
    {
        return 2;
    }
    try
    {
        File::MakeFolder(settings.output);
    }
    catch (Exception* exception)
    {
        std::fprintf(stderr, "%s %s\n", exception->Text().c_str(), exception->Text2().c_str());
        delete exception;
        return 1;
    }
    return Render(settings);
}

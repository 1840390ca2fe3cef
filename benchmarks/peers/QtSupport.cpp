#include "benchmarks/peers/QtSupport.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QVBoxLayout>
#include <QWindow>

#include <xcb/xcb.h>

#include <cstdio>
#include <cstdlib>

namespace
{
constexpr int kWidth = 1600; // pixels
constexpr int kHeight = 900; // pixels
constexpr int kPatienceMs = 10000;
constexpr int kPoints = 10; // the size of the font that wxWidgets' controls have
} // namespace

// An answer comes after everything that was asked for before it on the same connection, which is
// the one that the widgets are drawn through.
void WaitForDisplay()
{
    auto* const application = qApp->nativeInterface<QNativeInterface::QX11Application>();
    xcb_connection_t* const connection = application->connection();
    std::free(xcb_get_input_focus_reply(connection, xcb_get_input_focus(connection), nullptr));
}

std::unique_ptr<QWidget> OpenWindow(QWidget* widget)
{
    auto        window = std::make_unique<QWidget>();
    auto* const layout = new QVBoxLayout(window.get());
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(widget);
    window->resize(kWidth, kHeight);
    window->move(0, 0);
    window->show();
    PumpUntil([&] { return window->windowHandle()->isExposed() && window->isActiveWindow(); });
    WaitForDisplay();
    PumpEvents();
    return window;
}

void PumpEvents()
{
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void PumpUntil(const std::function<bool()>& condition)
{
    QElapsedTimer watch;
    watch.start();
    while (!condition())
    {
        if (watch.elapsed() > kPatienceMs)
        {
            std::fprintf(stderr, "a window does not get where it should\n");
            std::exit(EXIT_FAILURE);
        }
        PumpEvents();
    }
}

int RunBenchmarks(int argc, char** argv)
{
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
    {
        return EXIT_FAILURE;
    }
    // Nothing that is drawn without a display server can be compared.
    qputenv("QT_QPA_PLATFORM", "xcb");
    const QApplication application(argc, argv);
    if (!qApp->nativeInterface<QNativeInterface::QX11Application>())
    {
        std::fprintf(stderr, "not on an X display\n");
        return EXIT_FAILURE;
    }
    QFont font = QApplication::font();
    font.setPointSize(kPoints);
    QApplication::setFont(font);
    QApplication::setQuitOnLastWindowClosed(false);
    benchmark::AddCustomContext("toolkit", std::string("Qt ") + qVersion());
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return EXIT_SUCCESS;
}

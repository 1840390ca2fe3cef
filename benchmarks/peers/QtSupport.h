#pragma once

#include "benchmarks/FrameTime.h"

#include <QWidget>

#include <functional>
#include <memory>

/// What the benchmarks of Qt's widgets share, as BenchSupport.h for those of wxWidgets: the
/// program's start and end on a real display, and a shown window of 1600 x 900 pixels.

/// A window that is shown and holds the widget.
std::unique_ptr<QWidget> OpenWindow(QWidget* widget);

/// Handles the events that wait.
void PumpEvents();
/// Pumps until the condition holds; ends the program when it does not within ten seconds.
void PumpUntil(const std::function<bool()>& condition);

/// A control in a shown window of its own. `Control` has a member `widget`, which it does not own.
template <class Control> class ControlStage
{
public:
    ControlStage() : m_Window(OpenWindow(m_Control.widget)) {}

    Control* operator->() { return &m_Control; }
    /// Paints everything in the window, at once.
    void Repaint() { m_Window->repaint(); }
    /// Handles the events, paints everything and waits for the display.
    void Show()
    {
        PumpEvents();
        Repaint();
        WaitForDisplay();
    }

private:
    Control                  m_Control; // outlives the window, whose views look at its model
    std::unique_ptr<QWidget> m_Window;
};

/// Runs all benchmarks of the program; to be returned from main.
int RunBenchmarks(int argc, char** argv);

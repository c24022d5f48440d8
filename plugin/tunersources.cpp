#include "tunersources.h"

#include "mainwindow.h"
#include "tunerlog.h"

namespace tuner {

WindowSource::WindowSource(const QString &name, MainWindow *window, QObject *parent)
    : QObject(parent)
    , m_name(name)
    , m_window(window)
{}

bool WindowSource::hasWindow() const
{
    if (!m_window)
        TUNER_WAR() << "no main window: create() was not called.";
    return m_window != nullptr;
}

void WindowSource::start()
{
    if (hasWindow())
        m_window->start();
}

void WindowSource::stop()
{
    if (hasWindow())
        m_window->stop();
}

bool WindowSource::keyEvent(KeyEvent *event)
{
    return hasWindow() && m_window->sourceKeyEvent(event);
}

TunerSource::TunerSource(MainWindow *window, QObject *parent)
    : WindowSource(QStringLiteral("tuner"), window, parent)
{}

TASource::TASource(MainWindow *window, QObject *parent)
    : WindowSource(QStringLiteral("tunerta"), window, parent)
{}

} // namespace tuner

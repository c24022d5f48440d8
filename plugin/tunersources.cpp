#include "tunersources.h"

#include "mainwindow.h"
#include "tunerlog.h"

namespace tuner {

namespace {

bool hasWindow(MainWindow *window)
{
    if (!window)
        TUNER_WAR() << "no main window: create() was not called.";
    return window != nullptr;
}

void startWindow(MainWindow *window)
{
    if (hasWindow(window))
        window->start();
}

void stopWindow(MainWindow *window)
{
    if (hasWindow(window))
        window->stop();
}

bool forwardKey(MainWindow *window, KeyEvent *event)
{
    return hasWindow(window) && window->sourceKeyEvent(event);
}

} // namespace

TunerSource::TunerSource(MainWindow *window, QObject *parent)
    : QObject(parent)
    , m_window(window)
{
}

QString TunerSource::name() const
{
    return QStringLiteral("tuner");
}

void TunerSource::start()
{
    startWindow(m_window);
}

void TunerSource::stop()
{
    stopWindow(m_window);
}

bool TunerSource::keyEvent(KeyEvent *event)
{
    return forwardKey(m_window, event);
}

TASource::TASource(MainWindow *window, QObject *parent)
    : QObject(parent)
    , m_window(window)
{
}

QString TASource::name() const
{
    return QStringLiteral("tunerta");
}

void TASource::start()
{
    startWindow(m_window);
}

void TASource::stop()
{
    stopWindow(m_window);
}

bool TASource::keyEvent(KeyEvent *event)
{
    return forwardKey(m_window, event);
}

} // namespace tuner

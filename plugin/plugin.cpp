#include "plugin.h"

#include "mainwindow.h"
#include "tunersources.h"
#include "tunerwindow.h"

namespace tuner {

Plugin::Plugin(QObject *parent)
    : QObject(parent)
{}

Plugin::~Plugin() = default;

// The host calls this once, before any request; a second call replaces the
// remembered window.
void Plugin::create()
{
    m_mainWindow = new MainWindow(this);
}

QStringList Plugin::windowInterfaceIDs()
{
    return {QStringLiteral("tuner.win")};
}

QStringList Plugin::sourceInterfaceIDs()
{
    return {QStringLiteral("tuner.src"), QStringLiteral("ta.src")};
}

WindowInterface *Plugin::requestWindowInterface(const QString &key)
{
    if (key != QLatin1String("tuner.win"))
        return nullptr;
    if (!m_tunerWindow)
        m_tunerWindow = new TunerWindow(m_mainWindow, this);
    return m_tunerWindow;
}

SourceInterface *Plugin::requestSourceInterface(const QString &key)
{
    if (key == QLatin1String("tuner.src")) {
        if (!m_tunerSource)
            m_tunerSource = new TunerSource(m_mainWindow, this);
        return m_tunerSource;
    }
    if (key == QLatin1String("ta.src")) {
        if (!m_taSource)
            m_taSource = new TASource(m_mainWindow, this);
        return m_taSource;
    }
    return nullptr;
}

} // namespace tuner

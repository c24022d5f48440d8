#include "simcontrol.h"

#include "simradio.h"
#include "simservices.h"

namespace sim {

SimControl::SimControl(SimRadio *radio, SimSource *source, QObject *parent)
    : QObject(parent)
    , m_radio(radio)
    , m_source(source)
{}

void SimControl::startTrafficAnnouncement()
{
    m_radio->startInterrupt(3);
}

void SimControl::endTrafficAnnouncement()
{
    m_radio->startInterrupt(4);
}

void SimControl::startAlarm()
{
    m_radio->startInterrupt(5);
}

void SimControl::endAlarm()
{
    m_radio->startInterrupt(6);
}

void SimControl::windowAndSourceChanged(int windowId, int sourceId)
{
    emit m_source->windowAndSourceChanged(windowId, sourceId);
}

void SimControl::setCurrentWindow(int windowId)
{
    m_source->setWindow(windowId);
}

void SimControl::setStationName(int freq, const QString &name)
{
    m_radio->setStationName(freq, name);
}

void SimControl::setStationTp(int freq, bool tp)
{
    m_radio->setStationTp(freq, tp);
}

void SimControl::setStationPty(int freq, int pty)
{
    m_radio->setStationPty(freq, pty);
}

void SimControl::setTimeScale(int percent)
{
    m_radio->setTimeScale(percent);
}

QString SimControl::state()
{
    return m_radio->stateJson();
}

} // namespace sim

#include "radiocontrol.h"

#include "nilo_mcuservice_interface.h"
#include "nilo_radioservice_interface.h"
#include "preferences.h"
#include "radioedge.h"

namespace tuner {

// A new screen shows no search running until the service says otherwise.
RadioControl::RadioControl(NiloRadioServiceInterface *radio, NiloMcuServiceInterface *mcu)
    : m_radio(radio)
    , m_mcu(mcu)
{
    setWorkStatus(WorkStatus::Idle);
}

WorkStatus RadioControl::workStatus() const
{
    return prefs()->running().shownWorkStatus();
}

void RadioControl::setWorkStatus(WorkStatus status)
{
    prefs()->running().setShownWorkStatus(status);
}

void RadioControl::followStateOf(RadioEdge *edge)
{
    m_edge = edge;
}

bool RadioControl::radioStateKnown() const
{
    return !m_edge || m_edge->radioStateKnown();
}

void RadioControl::beep(int state)
{
    m_mcu->triggerBeep(state);
}

void RadioControl::tune(int freq)
{
    m_radio->tune(freq);
    m_tuneRequested = true;
}

void RadioControl::seekStarted()
{
    m_tuneRequested = true;
    m_seeking = true;
}

void RadioControl::seek(bool up)
{
    up ? m_radio->seekForward() : m_radio->seekBackward();
}

void RadioControl::autoScan()
{
    m_radio->autoScan();
    m_tuneRequested = true;
}

void RadioControl::stopAndRetune()
{
    m_radio->terminate();
    m_radio->tune(prefs()->playFreq());
}

bool RadioControl::stopRunningSearch()
{
    const SearchGate gate = searchGate(workStatus());
    if (gate == SearchGate::Stop)
        m_radio->terminate();
    else if (gate == SearchGate::StopAndRetune)
        stopAndRetune();
    return gate != SearchGate::Run;
}

void RadioControl::stopStoreOrSeek()
{
    if (workStatus() == WorkStatus::AutoStore)
        m_radio->terminate();
    else if (isSeek(workStatus()))
        stopAndRetune();
}

bool RadioControl::stopAnySearch()
{
    if (workStatus() == WorkStatus::AutoStore) {
        m_radio->terminate();
        return true;
    }
    if (workStatus() != WorkStatus::Idle || prefs()->PTYSeachState() == kPtySearching) {
        stopAndRetune();
        return true;
    }
    return false;
}

} // namespace tuner

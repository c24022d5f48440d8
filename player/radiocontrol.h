#pragma once

#include "tunerkeys.h"

#include <QPointer>

class NiloMcuServiceInterface;
class NiloRadioServiceInterface;

namespace tuner {

class RadioEdge;

// What the tuner screen asks of the radio service, and what it remembers of
// the answers: the work status, a tune whose report is awaited, a seek of its
// own, and the last frequency shown. The screen and its collaborators share
// this one instance.
class RadioControl
{
public:
    RadioControl(NiloRadioServiceInterface *radio, NiloMcuServiceInterface *mcu);

    // The commands that leave nothing to remember.
    NiloRadioServiceInterface *radio() const { return m_radio; }
    // Whether the service's own state has been read; without an edge to ask
    // (a screen on its own) it counts as read.
    void followStateOf(RadioEdge *edge);
    bool radioStateKnown() const;

    // The work status as the screen shows it (the running state's).
    WorkStatus workStatus() const;
    void setWorkStatus(WorkStatus status);
    int lastFrequency() const { return m_lastFreq; }
    void setLastFrequency(int freq) { m_lastFreq = freq; }
    // A station report is awaited for a tune, seek or store of ours.
    bool tuneRequested() const { return m_tuneRequested; }
    void tuneReported() { m_tuneRequested = false; }
    // A seek of the screen's own runs: the band pages keep the RDS state.
    bool seeking() const { return m_seeking; }
    void seekEnded() { m_seeking = false; }

    void beep(int state);
    // Tunes and awaits the station report.
    void tune(int freq);
    // Marks a seek started with startSeek as the screen's own.
    void seekStarted();
    void seek(bool up);
    void autoScan();
    // Stops a search and tunes the stored frequency again.
    void stopAndRetune();
    // A running search is only stopped, never stepped over: true when one ran.
    bool stopRunningSearch();
    // Stops an automatic store, or a seek with a retune; PTY searches go on.
    void stopStoreOrSeek();
    // Stops whatever the service is searching; true when it searched.
    bool stopAnySearch();

private:
    NiloRadioServiceInterface *m_radio;
    NiloMcuServiceInterface *m_mcu;
    QPointer<RadioEdge> m_edge; // the main window's: it may go first
    int m_lastFreq = 0;
    bool m_tuneRequested = false;
    bool m_seeking = false;
};

} // namespace tuner

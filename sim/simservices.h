#pragma once

#include "nilomcuservicebackend.h"
#include "nilosourceservicebackend.h"

#include <QDebug>

namespace sim {

// The MCU only logs what the tuner asks of it, so beeps and audio states can
// be followed in the simulator's output.
class SimMcu : public NiloMcuServiceBackend
{
    Q_OBJECT
public:
    using NiloMcuServiceBackend::NiloMcuServiceBackend;

    void triggerBeep(int state) override
    {
        record("triggerBeep", {state});
        qInfo().noquote() << "mcu: triggerBeep" << state;
    }
    void updateAudioChannel(int channel) override
    {
        record("updateAudioChannel", {channel});
        qInfo().noquote() << "mcu: updateAudioChannel" << channel;
    }
    void updateAudioStatus(int status) override
    {
        record("updateAudioStatus", {status});
        qInfo().noquote() << "mcu: updateAudioStatus" << status;
    }
};

// The source service knows which window is on display.
class SimSource : public NiloSourceServiceBackend
{
    Q_OBJECT
public:
    using NiloSourceServiceBackend::NiloSourceServiceBackend;

    int currentWindow() override
    {
        record("currentWindow", {});
        return m_window;
    }
    void setWindow(int window) { m_window = window; }

private:
    int m_window = 1;
};

} // namespace sim

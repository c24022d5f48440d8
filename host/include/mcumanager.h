#pragma once

#include <QObject>

class HostMcuServiceProxy;

// The host's door to the MCU service: every request is a call on
// nilo.McuService, so beeps and audio states can be watched on the bus.
class McuManager : public QObject
{
    Q_OBJECT
public:
    enum AudioChannel {
        AudioChannelNone = 0,
        AudioChannelRadio = 1,
        AudioChannelMedia = 2,
        AudioChannelPhone = 3,
    };
    Q_ENUM(AudioChannel)

    enum AudioStatus {
        AudioStatusIdle = 0,
        AudioStatusInterruptStart = 7,
        AudioStatusInterruptEnd = 8,
    };
    Q_ENUM(AudioStatus)

    static McuManager *instance();

    void triggerBeep(int state);
    void updateAudioChannel(AudioChannel channel);
    void updateAudioStatus(AudioStatus status);

private:
    McuManager();

    HostMcuServiceProxy *m_mcu;
};

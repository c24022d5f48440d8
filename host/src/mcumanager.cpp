#include "mcumanager.h"

#include "busproxies.h"

McuManager *McuManager::instance()
{
    static McuManager *manager = new McuManager;
    return manager;
}

McuManager::McuManager()
    : m_mcu(tuner::bus::createMcuProxy(this))
{
}

// Requests are fire-and-forget: the MCU answers nothing the host waits for.
void McuManager::triggerBeep(int state)
{
    m_mcu->triggerBeep(state);
}

void McuManager::updateAudioChannel(AudioChannel channel)
{
    m_mcu->updateAudioChannel(channel);
}

void McuManager::updateAudioStatus(AudioStatus status)
{
    m_mcu->updateAudioStatus(status);
}

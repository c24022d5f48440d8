#include "mcumanager.h"

#include "host_mcuservice_proxy.h"

#include <QDBusConnection>

namespace {
// A beep is fire-and-forget; this only bounds the host's own getters.
constexpr int kMcuCallTimeoutMs = 150;
} // namespace

McuManager *McuManager::instance()
{
    static McuManager *manager = new McuManager;
    return manager;
}

McuManager::McuManager()
    : m_mcu(new HostMcuServiceProxy(QStringLiteral("com.nilo.mcu"), QStringLiteral("/McuService"),
                                    QDBusConnection::sessionBus(), this))
{
    m_mcu->setTimeout(kMcuCallTimeoutMs);
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

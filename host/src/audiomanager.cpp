#include "audiomanager.h"

#include "hostlog.h"

AudioManager *AudioManager::instance()
{
    static AudioManager *manager = new AudioManager;
    return manager;
}

int AudioManager::requestAudioFocus(int streamType, int durationHint, IAudioFocusChangeListener *listener)
{
    const int result = m_result;
    if (result == FocusGranted && listener) {
        m_listener = listener;
        m_listenerObject = dynamic_cast<QObject *>(listener);
        m_listenerTracked = !m_listenerObject.isNull();
    }
    emit focusRequested(streamType, durationHint, listener ? listener->clientId() : QString(), result);
    return result;
}

void AudioManager::abandonAudioFocus(IAudioFocusChangeListener *listener)
{
    if (listener == m_listener) {
        m_listener = nullptr;
        m_listenerObject = nullptr;
        m_listenerTracked = false;
    }
}

void AudioManager::setFocusResult(int result)
{
    m_result = result;
}

IAudioFocusChangeListener *AudioManager::listener() const
{
    // A QObject listener that has been deleted must not be called (nor touched).
    if (m_listenerTracked && m_listenerObject.isNull())
        return nullptr;
    return m_listener;
}

bool AudioManager::dispatchFocusChange(int focusChange)
{
    IAudioFocusChangeListener *target = listener();
    if (!target) {
        HOST_WAR() << focusChange << "no audio focus listener.";
        return false;
    }
    target->onAudioFocusChange(focusChange);
    return true;
}

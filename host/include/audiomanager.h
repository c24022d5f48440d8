#pragma once

#include "appplugin.h"

#include <QObject>
#include <QPointer>

// Audio focus arbitration. The host decides whether a request is granted;
// the last listener that asked is told when focus changes.
class AudioManager : public QObject
{
    Q_OBJECT
public:
    enum Result { FocusGranted = 0, FocusRefused = 1 };

    static AudioManager *instance();

    int requestAudioFocus(int streamType, int durationHint, IAudioFocusChangeListener *listener);
    void abandonAudioFocus(IAudioFocusChangeListener *listener);

    // Host side.
    void setFocusResult(int result);
    int focusResult() const { return m_result; }
    IAudioFocusChangeListener *listener() const;
    // Delivers a focus change to the current listener; false when there is none.
    bool dispatchFocusChange(int focusChange);

signals:
    void focusRequested(int streamType, int durationHint, const QString &clientId, int result);

private:
    AudioManager() = default;

    int m_result = FocusGranted;
    IAudioFocusChangeListener *m_listener = nullptr;
    QPointer<QObject> m_listenerObject; // to notice a listener that was deleted
    bool m_listenerTracked = false;
};

#pragma once

#include <QBasicTimer>
#include <QDBusContext>
#include <QDBusObjectPath>
#include <QObject>
#include <QStringList>
#include <QVariantMap>

class QDBusPendingCallWatcher;

#include <functional>

namespace tuner {

class ShownStation;

// The tuner as an MPRIS2 media player on the session bus, for the rest of the
// car: the station that plays as the track, whether the tuner plays, and Next
// and Previous as the steering wheel's preset keys. Its title is the station
// as the screen's display line shows it (`shown`); band, frequency and
// programme type come from the preferences. It acts only through the keys and
// never talks to the radio service itself.
class NowPlaying : public QObject, protected QDBusContext
{
    Q_OBJECT
    // org.mpris.MediaPlayer2
    Q_PROPERTY(bool CanQuit READ no)
    Q_PROPERTY(bool CanRaise READ no)
    Q_PROPERTY(bool HasTrackList READ no)
    Q_PROPERTY(QString Identity READ identity)
    Q_PROPERTY(QString DesktopEntry READ desktopEntry)
    Q_PROPERTY(QStringList SupportedUriSchemes READ none)
    Q_PROPERTY(QStringList SupportedMimeTypes READ none)
    // org.mpris.MediaPlayer2.Player
    Q_PROPERTY(QString PlaybackStatus READ playbackStatus)
    Q_PROPERTY(double Rate READ one WRITE ignore)
    Q_PROPERTY(QVariantMap Metadata READ metadata)
    Q_PROPERTY(double Volume READ one WRITE ignore)
    Q_PROPERTY(qlonglong Position READ position)
    Q_PROPERTY(double MinimumRate READ one)
    Q_PROPERTY(double MaximumRate READ one)
    Q_PROPERTY(bool CanGoNext READ yes)
    Q_PROPERTY(bool CanGoPrevious READ yes)
    // A station is always the current track, and it plays: MPRIS asks for
    // true then, and playerctl passes over a player that cannot play. Play
    // itself changes nothing.
    Q_PROPERTY(bool CanPlay READ yes)
    Q_PROPERTY(bool CanPause READ no)
    Q_PROPERTY(bool CanSeek READ no)
    Q_PROPERTY(bool CanControl READ yes)

public:
    enum class Playback { Stopped, Paused, Playing };

    static const char *const kServiceName; // "org.mpris.MediaPlayer2.nilo_tuner"
    static const char *const kObjectPath;  // "/org/mpris/MediaPlayer2"
    static constexpr int kCoalesceMs = 50; // at most one PropertiesChanged in this time

    // `stepPreset`: the next (true) or previous preset key, pressed on the
    // driver's behalf. Exported on the session bus when it is connected.
    NowPlaying(const ShownStation &shown, std::function<void(bool next)> stepPreset, QObject *parent = nullptr);
    ~NowPlaying() override;

    void setPlayback(Playback playback);
    Playback playback() const { return m_playback; }
    // The bus name it got, empty until the bus daemon answered.
    QString serviceName() const { return m_serviceName; }

    QString playbackStatus() const;
    // Read when asked: always the station as it is now.
    QVariantMap metadata() const { return currentMetadata(); }

public slots:
    // org.mpris.MediaPlayer2
    void Raise() {}
    void Quit() {}
    // org.mpris.MediaPlayer2.Player: a tuner neither pauses nor seeks.
    void Next();
    void Previous();
    void Pause() {}
    void PlayPause() {}
    void Stop() {}
    void Play() {}
    void Seek(qlonglong) {}
    void SetPosition(const QDBusObjectPath &, qlonglong) {}
    // Answers an error: there is nothing a tuner could open.
    void OpenUri(const QString &Uri);

signals:
    void Seeked(qlonglong Position); // relayed by the adaptor; a tuner never seeks

protected:
    void timerEvent(QTimerEvent *event) override;

private slots:
    void onNameTaken(QDBusPendingCallWatcher *watcher);
    // Something the metadata is made of may have changed.
    void onStationChanged();

private:
    bool no() const { return false; }
    bool yes() const { return true; }
    double one() const { return 1.0; }
    void ignore(double) {}
    QString identity() const { return QStringLiteral("Nilo tuner"); }
    QString desktopEntry() const;
    QStringList none() const { return {}; }
    qlonglong position() const { return 0; }

    void requestName(const QString &name);
    void publish();
    QVariantMap currentMetadata() const;

    const ShownStation &m_shown;
    std::function<void(bool)> m_stepPreset;
    Playback m_playback = Playback::Stopped;
    QVariantMap m_announced; // the Metadata last announced
    QString m_published;     // the PlaybackStatus last announced
    QString m_serviceName;
    QBasicTimer m_coalesce;
    bool m_exported = false;
};

} // namespace tuner

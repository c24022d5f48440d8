#include "nowplaying.h"

#include "mpris_player_adaptor.h"
#include "mpris_root_adaptor.h"
#include "preferences.h"
#include "settingsutil.h"
#include "shownstation.h"
#include "stationwatch.h"
#include "translator.h"
#include "tunerlog.h"
#include "tuneroptions.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QTimerEvent>

namespace tuner {

const char *const NowPlaying::kServiceName = "org.mpris.MediaPlayer2.nilo_tuner";
const char *const NowPlaying::kObjectPath = "/org/mpris/MediaPlayer2";

namespace {

constexpr char kPlayerInterface[] = "org.mpris.MediaPlayer2.Player";
constexpr char kBusService[] = "org.freedesktop.DBus";
constexpr char kBusPath[] = "/org/freedesktop/DBus";
constexpr uint kDoNotQueue = 4;
enum NameReply : uint { PrimaryOwner = 1, Exists = 3, AlreadyOwner = 4 };

const char *const kBandNames[] = {"FM1", "FM2", "FM3", "AM1", "AM2"};

QDBusMessage busCall(const char *method, const QString &name)
{
    QDBusMessage call = QDBusMessage::createMethodCall(QLatin1String(kBusService), QLatin1String(kBusPath),
                                                       QLatin1String(kBusService), QLatin1String(method));
    call << name;
    return call;
}

} // namespace

NowPlaying::NowPlaying(const ShownStation &shown, std::function<void(bool next)> stepPreset, QObject *parent)
    : QObject(parent)
    , m_shown(shown)
    , m_stepPreset(std::move(stepPreset))
    , m_announced(currentMetadata())
    , m_published(playbackStatus())
{
    // Metadata is compared before it is announced, and its track id is a path.
    static const bool pathsCompare = QMetaType::registerComparators<QDBusObjectPath>();
    Q_UNUSED(pathsCompare)
    connect(&m_shown, SIGNAL(changed()), this, SLOT(onStationChanged()));
    // Band, frequency and programme type as the radio reports them.
    connect(StationWatch::instance(), SIGNAL(changed()), this, SLOT(onStationChanged()));

    new MprisRootAdaptor(this);
    new MprisPlayerAdaptor(this);
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) {
        TUNER_WAR() << "no session bus: the media-player interface is not offered.";
        return;
    }
    m_exported = bus.registerObject(QLatin1String(kObjectPath), this, QDBusConnection::ExportAdaptors);
    if (!m_exported) {
        TUNER_WAR() << kObjectPath << "is taken on the session bus: the media-player interface is not offered.";
        return;
    }
    requestName(QLatin1String(kServiceName));
}

NowPlaying::~NowPlaying()
{
    if (!m_exported)
        return;
    QDBusConnection bus = QDBusConnection::sessionBus();
    bus.unregisterObject(QLatin1String(kObjectPath));
    if (!m_serviceName.isEmpty())
        bus.asyncCall(busCall("ReleaseName", m_serviceName));
}

// Asked without waiting: the bus daemon's answer comes to onNameTaken.
void NowPlaying::requestName(const QString &name)
{
    QDBusMessage call = busCall("RequestName", name);
    call << kDoNotQueue;
    auto *watcher = new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(call), this);
    watcher->setProperty("name", name);
    connect(watcher, SIGNAL(finished(QDBusPendingCallWatcher *)), this, SLOT(onNameTaken(QDBusPendingCallWatcher *)));
}

void NowPlaying::onNameTaken(QDBusPendingCallWatcher *watcher)
{
    watcher->deleteLater();
    const QString name = watcher->property("name").toString();
    const QDBusPendingReply<uint> reply = *watcher;
    if (reply.isError()) {
        TUNER_WAR() << name << "could not be requested:" << reply.error().message();
        return;
    }
    if (reply.value() == PrimaryOwner || reply.value() == AlreadyOwner) {
        m_serviceName = name;
        return;
    }
    // Another player of ours has the name: this one is an instance, as MPRIS names them.
    if (name == QLatin1String(kServiceName) && reply.value() == Exists) {
        requestName(name + QStringLiteral(".instance%1").arg(QCoreApplication::applicationPid()));
        return;
    }
    TUNER_WAR() << name << "is taken: the media-player interface has no name.";
}

void NowPlaying::setPlayback(Playback playback)
{
    if (playback == m_playback)
        return;
    m_playback = playback;
    onStationChanged();
}

QString NowPlaying::playbackStatus() const
{
    switch (m_playback) {
    case Playback::Playing:
        return QStringLiteral("Playing");
    case Playback::Paused:
        return QStringLiteral("Paused");
    case Playback::Stopped:
        break;
    }
    return QStringLiteral("Stopped");
}

void NowPlaying::Next()
{
    m_stepPreset(true);
}

void NowPlaying::Previous()
{
    m_stepPreset(false);
}

void NowPlaying::OpenUri(const QString &)
{
    if (calledFromDBus())
        sendErrorReply(QDBusError::NotSupported, QStringLiteral("A tuner opens no URI."));
}

// Reports come in floods: the properties are read and announced once the
// flood has had 50 ms, the last state always last.
void NowPlaying::onStationChanged()
{
    if (!m_coalesce.isActive())
        m_coalesce.start(kCoalesceMs, this);
}

void NowPlaying::timerEvent(QTimerEvent *event)
{
    if (event->timerId() != m_coalesce.timerId())
        return QObject::timerEvent(event);
    m_coalesce.stop();
    publish();
}

void NowPlaying::publish()
{
    QVariantMap changed;
    const QVariantMap metadata = currentMetadata();
    if (metadata != m_announced) {
        m_announced = metadata;
        changed.insert(QStringLiteral("Metadata"), metadata);
    }
    if (playbackStatus() != m_published) {
        m_published = playbackStatus();
        changed.insert(QStringLiteral("PlaybackStatus"), m_published);
    }
    if (changed.isEmpty() || !m_exported)
        return;
    QDBusMessage signal
        = QDBusMessage::createSignal(QLatin1String(kObjectPath), QStringLiteral("org.freedesktop.DBus.Properties"),
                                     QStringLiteral("PropertiesChanged"));
    signal << QLatin1String(kPlayerInterface) << changed << QStringList();
    QDBusConnection::sessionBus().send(signal);
}

// The host application's desktop file, by which desktop shells name the
// player and raise its window.
QString NowPlaying::desktopEntry() const
{
    const QCoreApplication *app = QCoreApplication::instance();
    if (!app)
        return QString();
    const QString desktopFile = app->property("desktopFileName").toString();
    return desktopFile.isEmpty() ? QCoreApplication::applicationName() : desktopFile;
}

// Typed as MPRIS types them (artist and genre are lists of strings): the
// Bluetooth bridge drops a whole update with one key of another type.
QVariantMap NowPlaying::currentMetadata() const
{
    const Preferences *p = prefs();
    const int band = p->band();
    const int freq = p->playFreq();
    const QString bandName = QLatin1String(Preferences::isValidBand(band) ? kBandNames[band] : "FM1");
    const int ptyText = ptyTextId(cm::SettingsUtil::instance()->getRdsSupport(), p->PTYtype());
    return {
        {QStringLiteral("mpris:trackid"),
         QVariant::fromValue(
             QDBusObjectPath(QStringLiteral("/org/nilo/tuner/station/%1/%2").arg(bandName).arg(qMax(freq, 0))))},
        {QStringLiteral("xesam:title"), m_shown.title()},
        {QStringLiteral("xesam:artist"),
         QStringList{(bandName + QLatin1Char(' ') + m_shown.frequencyAndUnit()).trimmed()}},
        {QStringLiteral("xesam:album"), bandName},
        {QStringLiteral("xesam:genre"), ptyText ? QStringList{Translator::translate(ptyText)} : QStringList()},
        {QStringLiteral("nilo:frequency"), freq},
        {QStringLiteral("nilo:band"), band},
        {QStringLiteral("nilo:programmeType"), p->PTYtype()},
    };
}

} // namespace tuner

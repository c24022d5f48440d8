// libFuzzer target: bytes become a sequence of radio-service signals with
// arbitrary arguments, source keys, focus changes, touches and media-player
// calls, delivered to the main window and the tuner screen with no bus. Signals are emitted on the
// main window's own radio proxy, as the bus would deliver them.

#include "audiomanager.h"
#include "hostevents.h"
#include "mainwidget.h"
#include "mainwindow.h"
#include "nilo_radioservice_interface.h"
#include "nowplaying.h"

#include <QApplication>
#include <QMouseEvent>
#include <QTemporaryDir>

#include <cstdint>
#include <cstring>

namespace {

// Reads the input front to back; past its end everything reads as zero.
class Bytes
{
public:
    Bytes(const uint8_t *data, size_t size)
        : m_data(data)
        , m_size(size)
    {}
    bool atEnd() const { return m_pos >= m_size; }
    uint8_t byte() { return atEnd() ? 0 : m_data[m_pos++]; }
    int32_t int32()
    {
        // Small numbers near the interesting ranges are likelier than random words.
        switch (byte() % 4) {
        case 0:
            return byte();
        case 1:
            return 8750 + 5 * int16();
        case 2:
            return int16();
        default: {
            uint32_t v = 0;
            for (int i = 0; i < 4; ++i)
                v = (v << 8) | byte();
            int32_t s;
            std::memcpy(&s, &v, sizeof s);
            return s;
        }
        }
    }
    QString string()
    {
        const size_t length
            = std::min<size_t>((size_t(byte()) << 4) | (byte() & 0x0F), m_size - std::min(m_pos, m_size));
        const QString text = QString::fromLatin1(reinterpret_cast<const char *>(m_data + m_pos), int(length));
        m_pos += length;
        return text;
    }

private:
    int16_t int16() { return int16_t((byte() << 8) | byte()); }

    const uint8_t *m_data;
    size_t m_size;
    size_t m_pos = 0;
};

constexpr int kKeys[] = {7,   8,   33,  34,  35,  36,  37,  38,  39,  44,  45,  46,  47,  51,  52,  66,  114, 116,
                         117, 118, 121, 122, 125, 161, 162, 163, 176, 177, 178, 179, 180, 181, 182, 184, 185};

tuner::MainWindow *g_window = nullptr;
NiloRadioServiceInterface *g_radio = nullptr;

void touch(Bytes &in)
{
    QWidget *screen = g_window->mainWidget();
    if (!screen)
        return;
    const QPoint at(in.byte() * 800 / 256, in.byte() * 480 / 256);
    QWidget *target = screen->childAt(at);
    if (!target)
        target = screen;
    const QPoint local = target->mapFrom(screen, at);
    const QEvent::Type type = in.byte() % 2 ? QEvent::MouseButtonPress : QEvent::MouseButtonRelease;
    QMouseEvent event(type, local, target->mapToGlobal(local), Qt::LeftButton,
                      type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(target, &event);
}

void radioSignal(Bytes &in)
{
    NiloRadioServiceInterface *r = g_radio;
    switch (in.byte() % 14) {
    case 0:
        emit r->stationChanged(in.int32(), in.int32());
        break;
    case 1:
        emit r->ProgramName(in.string());
        break;
    case 2:
        emit r->PsName1(in.string());
        break;
    case 3:
        emit r->PsName2(in.string());
        break;
    case 4:
        emit r->statusChanged(in.int32());
        break;
    case 5:
        emit r->tp_pi_status(in.byte() % 8);
        break;
    case 6:
        emit r->seekState(in.byte() % 8);
        break;
    case 7:
        emit r->work_status(in.int32());
        break;
    case 8:
        emit r->autoScanCompleted(in.string());
        break;
    case 9:
        emit r->aftaState(in.string(), in.int32());
        break;
    case 10:
        emit r->ptyChanged(in.int32(), in.string());
        break;
    case 11:
        emit r->bandFMAMChang(in.int32());
        break;
    case 12: {
        const int bandSwitch = in.int32(), bandId = in.int32();
        const QString fm = in.string(), am = in.string();
        const int fmMax = in.int32(), fmMin = in.int32(), fmStep = in.int32();
        const int amMax = in.int32(), amMin = in.int32(), amStep = in.int32();
        const QString current = in.string(), positions = in.string();
        emit r->initDate(bandSwitch, bandId, fm, am, 0, 0, 0, 0, 0, fmMax, fmMin, fmStep, amMax, amMin, amStep, current,
                         positions, in.int32(), in.int32());
        break;
    }
    default:
        emit r->tp_pi_status(in.int32());
        break;
    }
}

// What a media-player client may ask, with whatever arguments.
void mediaPlayerCall(Bytes &in)
{
    tuner::NowPlaying *player = g_window->nowPlaying();
    switch (in.byte() % 8) {
    case 0:
        player->Next();
        break;
    case 1:
        player->Previous();
        break;
    case 2:
        player->Seek(in.int32());
        break;
    case 3:
        player->SetPosition(QDBusObjectPath(in.string()), in.int32());
        break;
    case 4:
        player->OpenUri(in.string());
        break;
    case 5:
        player->setProperty(in.byte() % 2 ? "Volume" : "Rate", double(in.int32()) / 7);
        break;
    case 6:
        player->setPlayback(tuner::NowPlaying::Playback(in.byte() % 3));
        break;
    default:
        player->metadata();
        player->property("PlaybackStatus");
        break;
    }
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv)
{
    static QTemporaryDir root;
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("TUNER_ROOT", root.path().toUtf8());
    qputenv("NILO_DIR", root.path().toUtf8());
    // No bus at all: every call fails at once.
    qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nonexistent/nilo-fuzz-bus");
    qputenv("QT_LOGGING_RULES", "*.warning=false");
    static QApplication app(*argc, *argv);
    g_window = new tuner::MainWindow;
    g_window->onCreate();
    g_window->onShow();
    g_window->mainWidget()->show();
    g_radio = g_window->findChild<NiloRadioServiceInterface *>();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    Bytes in(data, size);
    while (!in.atEnd()) {
        switch (in.byte() % 7) {
        case 0:
        case 1:
            radioSignal(in);
            break;
        case 2: {
            const int key = kKeys[in.byte() % (sizeof kKeys / sizeof *kKeys)];
            KeyEvent event(Qx::EventType(1002 + in.byte() % 4), key);
            g_window->sourceKeyEvent(&event);
            break;
        }
        case 3:
            touch(in);
            break;
        case 4:
            g_window->onAudioFocusChange(int(in.byte() % 4) - 2);
            break;
        case 5:
            mediaPlayerCall(in);
            break;
        default:
            QCoreApplication::processEvents();
            break;
        }
    }
    QCoreApplication::processEvents();
    return 0;
}

#include "mainwindow.h"

#include "audiomanager.h"
#include "busproxies.h"
#include "busreply.h"
#include "hardwarekeys.h"
#include "hostevents.h"
#include "mainwidget.h"
#include "mcumanager.h"
#include "nilo_radioservice_interface.h"
#include "nilo_sourceservice_interface.h"
#include "nowplaying.h"
#include "preferences.h"
#include "radiochecks.h"
#include "radioedge.h"
#include "radiostateread.h"
#include "rdsswitches.h"
#include "shownstation.h"
#include "tunerkeys.h"
#include "tuneroptions.h"

#include <QVector>

namespace tuner {

namespace {

// The source service's source of traffic announcements.
constexpr int kSourceTa = 6;
// Windows of the source service from which a PTY search is started.
constexpr int kPtyListWindow = 9;
constexpr int kPtySearchWindows[] = {kPtyListWindow, 5, 3};
// Audio focus lost for good, or for a while.
constexpr int kFocusLoss = -1;
constexpr int kFocusLossTransient = -2;
constexpr int kFocusGain = 1;

} // namespace

MainWindow::MainWindow(QObject *parent)
    : cm::BaseWindow(parent)
    , m_radio(bus::createRadioProxy(this))
    , m_radioEdge(new RadioEdge(m_radio, this))
    , m_mcu(bus::createMcuProxy(this))
    , m_source(bus::createSourceProxy(this))
    , m_stateRead(new RadioStateRead(m_radio, m_radioEdge, this))
    , m_interrupts(m_radio)
    , m_keys(new HardwareKeys(
          m_radio, m_mcu, m_interrupts, [this] { return m_mainWidget; }, this))
    , m_shown(new ShownStation(this))
    , m_nowPlaying(new NowPlaying(
          *m_shown, [this](bool next) { m_keys->stepPreset(next); }, this))
{
    // The radio's signals arrive through the edge that checks them.
    connect(m_radioEdge, &RadioEdge::tuning, this, &MainWindow::onTuning);
    connect(m_radioEdge, SIGNAL(aftaState(QString,int)), this, SLOT(onAftaState(QString,int)));
    connect(m_radioEdge, SIGNAL(PsName1(QString)), this, SLOT(onPsName1(QString)));
    connect(m_radioEdge, SIGNAL(PsName2(QString)), this, SLOT(onPsName2(QString)));
    connect(m_radioEdge, SIGNAL(stationChanged(int,int)), this, SLOT(onStaionChanged(int,int)));
    connect(m_radioEdge, SIGNAL(autoScanCompleted(QString)), this, SLOT(onAutoScanCompleted(QString)));
    connect(m_radioEdge, SIGNAL(statusChanged(int)), this, SLOT(onstatusChanged(int)));
    connect(m_radioEdge, SIGNAL(tp_pi_status(int)), this, SLOT(onPiTpStatus(int)));
    connect(m_radioEdge, SIGNAL(seekState(int)), this, SLOT(onPTYSeekState(int)));
    connect(m_radioEdge, SIGNAL(work_status(int)), this, SLOT(onWorkStatus(int)));
    connect(m_radioEdge, SIGNAL(ProgramName(QString)), this, SLOT(onRdsName(QString)));
    connect(m_source, SIGNAL(windowAndSourceChanged(int,int)), this, SLOT(onSourceChange(int,int)));
    connect(m_radioEdge, SIGNAL(serviceAppeared()), this, SLOT(onRadioServiceAppeared()));
    // What the service says when read goes through the same slots as what it reports.
    connect(m_stateRead, &RadioStateRead::tuning, this, &MainWindow::onTuning);
    connect(m_stateRead, SIGNAL(aftaState(QString,int)), this, SLOT(onAftaState(QString,int)));
    connect(m_stateRead, SIGNAL(PsName1(QString)), this, SLOT(onPsName1(QString)));
    connect(m_stateRead, SIGNAL(PsName2(QString)), this, SLOT(onPsName2(QString)));
    connect(m_stateRead, SIGNAL(tp_pi_status(int)), this, SLOT(onPiTpStatus(int)));
    connect(m_stateRead, SIGNAL(ProgramName(QString)), this, SLOT(onRdsName(QString)));
    connect(m_stateRead, SIGNAL(statusChanged(int)), this, SLOT(onstatusChanged(int)));
    connect(m_stateRead, SIGNAL(fed()), this, SLOT(onRadioStateFed()));
    // The cancel key's follow-ups, as the popup's cancel reports them.
    connect(&m_interrupts, SIGNAL(alarmCancel()), this, SLOT(onTaskEvtAlarmCancel()));
    connect(&m_interrupts, SIGNAL(cancelTaAlarm()), this, SLOT(onCancelTaAlarm()));

    m_stateRead->start(bus::ReplyBatch::kBlockingWaitMs);
}

MainWindow::~MainWindow()
{
    // A stack the host never adopted is still ours.
    if (m_mainWidget && !m_mainWidget->parent())
        delete m_mainWidget;
}

// A service that appeared after the tuner, or restarted, is read as at start-up.
void MainWindow::onRadioServiceAppeared()
{
    m_stateRead->start(bus::ReplyBatch::kBlockingWaitMs);
}

void MainWindow::onRadioStateFed()
{
    if (m_mainWidget)
        m_mainWidget->synchronise();
}

// The keys' repeat timer is the hardware keys' own.
void MainWindow::timerEvent(QTimerEvent *event)
{
    cm::BaseWindow::timerEvent(event);
}

void MainWindow::onCreate()
{
    cm::BaseWindow::onCreate();
    if (m_mainWidget) {
        m_mainWidget->resume();
        return;
    }
    m_mainWidget = new MainWidget(nullptr, m_radioEdge, m_shown);
    setMainWidget(m_mainWidget);
    connect(m_mainWidget, SIGNAL(alarmCancel()), this, SLOT(onTaskEvtAlarmCancel()));
    connect(m_mainWidget, SIGNAL(cancelTaAlarm()), this, SLOT(onCancelTaAlarm()));
    connect(m_mainWidget, SIGNAL(destroyed()), this, SLOT(onDestroyObj()));
}

int MainWindow::currentWindow(bool *timedOut)
{
    return bus::replyValue(m_source->currentWindow(), "currentWindow", timedOut);
}

void MainWindow::onDestroy()
{
    // A PTY search started from one of these windows is stopped with the
    // window. A service that let one question run out is not asked again.
    bool searchWindow = false;
    bool timedOut = false;
    for (const int window : kPtySearchWindows) {
        searchWindow = currentWindow(&timedOut) == window;
        if (searchWindow || timedOut)
            break;
    }
    if (searchWindow && prefs()->PTYSeachState() == kPtySearching)
        m_radio->terminate();
    g_TunerCurDSPL = DisplayNone;
    m_nowPlaying->setPlayback(NowPlaying::Playback::Stopped);
    if (m_mainWidget)
        m_mainWidget->hide();
    deleteDelay();
}

void MainWindow::onShow()
{
    cm::BaseWindow::onShow();
    start();
}

bool MainWindow::keyEvent(KeyEvent *)
{
    return false;
}

bool MainWindow::sourceKeyEvent(KeyEvent *e)
{
    return m_keys->sourceKeyEvent(e);
}

void MainWindow::reTranslateUI()
{
    if (m_mainWidget)
        m_mainWidget->retranslate();
}

QString MainWindow::name() const
{
    return QStringLiteral("tuner");
}

void MainWindow::start()
{
    // 1 means refused; nothing else happens then.
    if (AudioManager::instance()->requestAudioFocus(1, 1, this) == 1)
        return;
    m_active = true;
    m_nowPlaying->setPlayback(NowPlaying::Playback::Playing);
    McuManager::instance()->updateAudioChannel(McuManager::AudioChannelRadio);
    if (const int report = m_interrupts.resumed())
        onPiTpStatus(report);
}

void MainWindow::stop()
{
    m_nowPlaying->setPlayback(NowPlaying::Playback::Stopped);
}

void MainWindow::onAudioFocusChange(int focus)
{
    // Back after a transient loss, the tuner plays on for the car's media player.
    if (focus == kFocusGain && m_nowPlaying->playback() == NowPlaying::Playback::Paused)
        m_nowPlaying->setPlayback(NowPlaying::Playback::Playing);
    if (focus != kFocusLoss && focus != kFocusLossTransient)
        return;
    m_nowPlaying->setPlayback(focus == kFocusLoss ? NowPlaying::Playback::Stopped : NowPlaying::Playback::Paused);
    Preferences *p = prefs();
    m_active = false;
    m_radio->terminate();
    if (isSeek(p->running().reportedWorkStatus()))
        m_radio->tune(p->playFreq());
    m_interrupts.focusLost();
}

QString MainWindow::clientId() const
{
    return QStringLiteral("tuner");
}

void MainWindow::onDestroyObj()
{
    m_mainWidget = nullptr;
}

void MainWindow::onTaskEvtAlarmCancel()
{
    postEvent(new TaskEvent(Qx::TaskAlarmCancel));
}

void MainWindow::onCancelTaAlarm()
{
    if (m_interrupts.reopenAnnouncement())
        onPiTpStatus(pitp::TaStart);
}

void MainWindow::onBackToHome()
{
    postEvent(new TouchEvent(Qx::TouchBackToHome));
}

void MainWindow::onAftaState(const QString &aftaList, int cur_afta)
{
    Preferences *p = prefs();
    p->setTa(false);
    p->setAf(false);
    if (cur_afta == 2) {
        p->setTa(true);
    } else if (cur_afta == 1) {
        p->setAf(true);
    } else if (cur_afta == 3) {
        p->setTa(true);
        p->setAf(true);
    }
    p->aftaState(aftaList);
    if (p->isFM()) {
        m_radio->setTa(p->ta());
        m_radio->setAf(p->af());
    } else {
        m_radio->setTa(false);
        m_radio->setAf(false);
    }
}

// The last two arguments carry the Local and Regional switches, whatever
// their names say.
void MainWindow::onInitDate(int band_switch, int band_id, const QString &fm_list, const QString &am_list,
                            int current_fm_freq, int current_am_freq, int fm_istuning, int am_istuning,
                            int current_band_num, int fm_freq_max, int fm_freq_min, int fm_step, int am_freq_max,
                            int am_freq_min, int am_step, const QString &band_current_freq,
                            const QString &band_position, int fm_press_id, int am_press_id)
{
    Q_UNUSED(current_fm_freq)
    Q_UNUSED(current_am_freq)
    Q_UNUSED(fm_istuning)
    Q_UNUSED(am_istuning)
    Q_UNUSED(current_band_num)
    onTuning(radiocheck::tuning(band_switch, band_id, fm_list, am_list, fm_freq_max, fm_freq_min, fm_step, am_freq_max,
                                am_freq_min, am_step, band_current_freq, band_position, fm_press_id, am_press_id));
}

void MainWindow::onTuning(const RadioTuning &t)
{
    Preferences *p = prefs();
    p->setBand(Band(t.bandId));
    if (t.bandSwitch != 0) {
        p->setBand_AM(Band(t.bandId));
        p->setBand_FM(BAND_FM1);
    } else {
        p->setBand_AM(BAND_AM1);
        p->setBand_FM(Band(t.bandId));
    }
    p->setLocal(t.local != 0);
    p->setRegional(t.regional != 0);
    p->init(t);
    if (!p->isFM() && m_mainWidget)
        m_mainWidget->updateFreq();
}

void MainWindow::onPsName1(const QString &string)
{
    prefs()->setPsName1(string);
}

void MainWindow::onPsName2(const QString &string)
{
    prefs()->setPsName2(string);
    if (prefs()->isFM() && m_mainWidget)
        m_mainWidget->updateFreq();
}

void MainWindow::onAutoScanCompleted(const QString &freqList)
{
    Preferences *p = prefs();
    QVector<int> freqs;
    for (const QString &part : freqList.split(QLatin1Char(';'), Qt::SkipEmptyParts)) {
        const int freq = part.toInt(nullptr, 10);
        if (freq > 0)
            freqs.append(freq);
    }
    if (!freqs.isEmpty()) {
        p->saveFreq(freqs.constData(), freqs.size());
        if (p->isFM()) {
            p->resetAfTa(freqs.size());
            int left = freqs.size();
            for (int b = p->btmband(), i = p->curBandFreqId(); b <= BAND_FM3 && left > 0; ++b, i = 0) {
                for (; i <= 5 && left > 0; ++i, --left)
                    p->saveRdsName(Band(b), i, QString());
            }
            if (p->numberKeyInter())
                applyPresetTaAf(m_radio, p->btmFreqIdAfter());
        }
    }
    if (m_mainWidget)
        m_mainWidget->autoScanCompleted(freqList);
    else
        p->setbtmPlayFreqId(p->presetAfterStore());
}

void MainWindow::onTAStatus(int) {}

void MainWindow::onPiTpStatus(int pitpState)
{
    m_interrupts.record(pitpState, m_active);
    if (!m_active && pitpState != pitp::TaEnd && pitpState != pitp::AlarmEnd)
        return;
    if (m_mainWidget)
        m_mainWidget->piTpStatus(pitpState);
    if (!afTaTpSupported() || !prefs()->isFM())
        return;
    if (m_interrupts.apply(pitpState))
        onPiTpStatus(pitp::TaStart);
}

void MainWindow::onstatusChanged(int state)
{
    if (m_mainWidget)
        m_mainWidget->statusChanged(state);
    prefs()->setRdsStatus(state);
}

void MainWindow::onPTYSeekState(int type)
{
    if (type == kPtyFound)
        prefs()->running().endShownInterrupt();
    prefs()->setPtySerchstate(type);
    if (m_mainWidget)
        m_mainWidget->PTYsearchStatus(type);
    if (currentWindow() == kPtyListWindow && type == kPtySearching)
        m_radio->terminate();
}

void MainWindow::onWorkStatus(int state)
{
    if (state >= int(WorkStatus::AutoStore) && state <= int(WorkStatus::PtySearchDown))
        prefs()->running().endShownInterrupt();
    prefs()->setWorkState(state);
}

void MainWindow::onRdsName(const QString &name)
{
    if (m_mainWidget)
        m_mainWidget->RDSName(name);
    prefs()->setCurRdsName(name);
}

void MainWindow::onSourceChange(int winId, int src)
{
    Q_UNUSED(winId)
    if (src == kSourceTa)
        m_interrupts.announcementSourceTaken();
}

void MainWindow::onStaionChanged(int freq, int band)
{
    Q_UNUSED(band)
    prefs()->setCurrPlayFreq(freq);
}

} // namespace tuner

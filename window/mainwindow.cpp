#include "mainwindow.h"

#include "audiomanager.h"
#include "busproxies.h"
#include "busreply.h"
#include "hostevents.h"
#include "mainwidget.h"
#include "mcumanager.h"
#include "preferences.h"
#include "radioedge.h"
#include "radiostateread.h"
#include "settingsutil.h"
#include "tunerfunction.h"
#include "tunerkeys.h"
#include "tunerlog.h"
#include "tuneroptions.h"

#include <QTimerEvent>
#include <QVector>

namespace tuner {

namespace {

constexpr int kPresetRepeatMs = 1000;
constexpr int kSourceTa = 6;

Preferences *prefs()
{
    return Preferences::getInstance();
}

tunerfunction *keys()
{
    return tunerfunction::Instance();
}

bool afTaTpSupported()
{
    return cm::SettingsUtil::instance()->getRdsAfTaTpSupport() == 1;
}

bool isPresetRepeatKey(int key)
{
    return keyRole(key) == KeyRole::PresetUp || keyRole(key) == KeyRole::PresetDown;
}

} // namespace

MainWindow::MainWindow(QObject *parent)
    : cm::BaseWindow(parent)
    , m_radio(bus::createRadioProxy(this))
    , m_radioEdge(new RadioEdge(m_radio, this))
    , m_mcu(bus::createMcuProxy(this))
    , m_source(bus::createSourceProxy(this))
    , m_stateRead(new RadioStateRead(m_radio, this))
{
    // The radio's signals arrive through the edge that checks them.
    connect(m_radioEdge, SIGNAL(initDate(int,int,QString,QString,int,int,int,int,int,int,int,int,int,int,int,QString,QString,int,int)),
            this, SLOT(onInitDate(int,int,QString,QString,int,int,int,int,int,int,int,int,int,int,int,QString,QString,int,int)));
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
    connect(m_stateRead, SIGNAL(initDate(int,int,QString,QString,int,int,int,int,int,int,int,int,int,int,int,QString,QString,int,int)),
            this, SLOT(onInitDate(int,int,QString,QString,int,int,int,int,int,int,int,int,int,int,int,QString,QString,int,int)));
    connect(m_stateRead, SIGNAL(aftaState(QString,int)), this, SLOT(onAftaState(QString,int)));
    connect(m_stateRead, SIGNAL(PsName1(QString)), this, SLOT(onPsName1(QString)));
    connect(m_stateRead, SIGNAL(PsName2(QString)), this, SLOT(onPsName2(QString)));
    connect(m_stateRead, SIGNAL(tp_pi_status(int)), this, SLOT(onPiTpStatus(int)));
    connect(m_stateRead, SIGNAL(ProgramName(QString)), this, SLOT(onRdsName(QString)));
    connect(m_stateRead, SIGNAL(statusChanged(int)), this, SLOT(onstatusChanged(int)));
    connect(m_stateRead, SIGNAL(fed()), this, SLOT(onRadioStateFed()));

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

void MainWindow::timerEvent(QTimerEvent *event)
{
    if (event->timerId() != m_repeatTimer.timerId())
        return cm::BaseWindow::timerEvent(event);
    if (m_repeatKey == 0 || !isPresetRepeatKey(m_repeatKey)) {
        m_repeatTimer.stop();
        return;
    }
    if (WorkStatus(prefs()->workState()) == WorkStatus::AutoStore)
        return;
    if (keyRole(m_repeatKey) == KeyRole::PresetUp)
        keys()->presetUP();
    else
        keys()->presetDown();
    if (m_mainWidget)
        m_mainWidget->updatePresetChecked();
}

void MainWindow::onCreate()
{
    cm::BaseWindow::onCreate();
    if (m_mainWidget) {
        m_mainWidget->resume();
        return;
    }
    m_mainWidget = new MainWidget(nullptr, m_radioEdge);
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
    for (const int window : {9, 5, 3}) {
        searchWindow = currentWindow(&timedOut) == window;
        if (searchWindow || timedOut)
            break;
    }
    if (searchWindow && prefs()->PTYSeachState() == kPtySearching)
        m_radio->terminate();
    g_TunerCurDSPL = DisplayNone;
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
    McuManager::instance()->updateAudioChannel(McuManager::AudioChannelRadio);
    Preferences *p = prefs();
    if (p->taOrAlarm() == INTERRUPT_TA && !p->cancelTa()) {
        p->setTaStatus(false);
        onPiTpStatus(3);
    } else if (p->taOrAlarm() == INTERRUPT_ALARM && !p->cancelAlarm()) {
        p->setAlarmStatus(false);
        onPiTpStatus(5);
    }
}

void MainWindow::stop() {}

void MainWindow::onAudioFocusChange(int focus)
{
    if (focus != -1 && focus != -2)
        return;
    Preferences *p = prefs();
    m_active = false;
    m_radio->terminate();
    if (isSeek(WorkStatus(p->workState())))
        m_radio->tune(p->playFreq());
    if (p->taOrAlarm() != INTERRUPT_NONE)
        McuManager::instance()->updateAudioStatus(McuManager::AudioStatusInterruptEnd);
    if (p->taOrAlarm() == INTERRUPT_TA)
        m_radio->taAlarmCancel(1);
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
    Preferences *p = prefs();
    if (!p->taStatus())
        return;
    p->setTaStatus(false);
    p->setTaAlarmStatus(INTERRUPT_TA);
    onPiTpStatus(3);
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
                            int current_band_num, int fm_freq_max, int fm_freq_min, int fm_step,
                            int am_freq_max, int am_freq_min, int am_step, const QString &band_current_freq,
                            const QString &band_position, int fm_press_id, int am_press_id)
{
    Q_UNUSED(current_fm_freq)
    Q_UNUSED(current_am_freq)
    Q_UNUSED(fm_istuning)
    Q_UNUSED(am_istuning)
    Q_UNUSED(current_band_num)
    Preferences *p = prefs();
    p->setBand(Band(band_id));
    if (band_switch != 0) {
        p->setBand_AM(Band(band_id));
        p->setBand_FM(BAND_FM1);
    } else {
        p->setBand_AM(BAND_AM1);
        p->setBand_FM(Band(band_id));
    }
    p->setLocal(fm_press_id != 0);
    p->setRegional(am_press_id != 0);
    p->init(fm_freq_max, fm_freq_min, fm_step, am_freq_max, am_freq_min, am_step, band_current_freq,
            band_position, fm_list, am_list);
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
            if (p->numberKeyInter() && afTaTpSupported()) {
                const bool ta = p->fmTA(p->btmFreqIdAfter());
                const bool af = p->fmAf(p->btmFreqIdAfter());
                p->setAf(af);
                p->setTa(ta);
                m_radio->setTa(ta);
                m_radio->setAf(af);
            }
        }
    }
    if (m_mainWidget)
        m_mainWidget->autoScanCompleted(freqList);
    else
        p->setbtmPlayFreqId(p->numberKeyInter() ? p->btmFreqIdAfter() : p->curBandFreqId());
}

void MainWindow::onTAStatus(int) {}

// 3 traffic announcement starts, 4 ends, 5 alarm starts, 6 ends.
void MainWindow::onPiTpStatus(int pitpState)
{
    Preferences *p = prefs();
    switch (pitpState) {
    case 3:
        if (!(p->taOrAlarm() == INTERRUPT_ALARM && !p->cancelAlarm()))
            p->setTaAlarmStatus(INTERRUPT_TA);
        if (!m_active)
            p->setSouOffTa(true);
        break;
    case 5:
        p->setTaAlarmStatus(INTERRUPT_ALARM);
        p->setCancelAlarm(false);
        p->setSouOffAlarm(true);
        break;
    case 4:
        p->setCancelTa(false);
        if (!p->SouOffAlarm())
            p->setTaAlarmStatus(INTERRUPT_NONE);
        p->setSouOffTa(false);
        break;
    case 6:
        p->setCancelAlarm(false);
        p->setSouOffAlarm(false);
        p->setTaAlarmStatus(INTERRUPT_NONE);
        break;
    default:
        break;
    }

    if (!m_active && pitpState != 4 && pitpState != 6)
        return;
    if (m_mainWidget)
        m_mainWidget->piTpStatus(pitpState);
    if (!afTaTpSupported() || !p->isFM())
        return;

    McuManager *mcu = McuManager::instance();
    const bool alarmLive = p->alarmStatue() && !p->cancelAlarm();
    switch (pitpState) {
    case 3:
        if (!alarmLive && !p->taStatus())
            mcu->updateAudioStatus(McuManager::AudioStatusInterruptStart);
        p->setTaStatus(true);
        p->setCancelTa(false);
        break;
    case 4:
        if (!alarmLive && p->taStatus()) {
            mcu->updateAudioStatus(McuManager::AudioStatusInterruptEnd);
            p->setTaAlarmStatus(INTERRUPT_NONE);
        }
        p->setTaStatus(false);
        p->setCancelTa(false);
        break;
    case 5:
        if (!p->alarmStatue())
            mcu->updateAudioStatus(McuManager::AudioStatusInterruptStart);
        p->setAlarmStatus(true);
        break;
    case 6:
        if (p->alarmStatue()) {
            mcu->updateAudioStatus(McuManager::AudioStatusInterruptEnd);
            p->setTaAlarmStatus(INTERRUPT_NONE);
        }
        p->setAlarmStatus(false);
        p->setCancelAlarm(false);
        // An announcement that the alarm interrupted comes back.
        if ((p->taStatus() && !p->cancelTa()) || p->SouOffTa()) {
            p->setTaStatus(false);
            onPiTpStatus(3);
        }
        break;
    default:
        break;
    }
}

void MainWindow::onstatusChanged(int state)
{
    if (m_mainWidget)
        m_mainWidget->statusChanged(state);
    prefs()->setRdsStatus(state);
}

void MainWindow::onPTYSeekState(int type)
{
    Preferences *p = prefs();
    if (type == 6) {
        if (p->taStatus())
            p->setTaStatus(false);
        if (p->alarmStatue())
            p->setAlarmStatus(false);
    }
    p->setPtySerchstate(type);
    if (m_mainWidget)
        m_mainWidget->PTYsearchStatus(type);
    if (currentWindow() == 9 && type == kPtySearching)
        m_radio->terminate();
}

void MainWindow::onWorkStatus(int state)
{
    Preferences *p = prefs();
    if (state >= 1 && state <= 5) {
        if (p->taStatus())
            p->setTaStatus(false);
        if (p->alarmStatue())
            p->setAlarmStatus(false);
    }
    p->setWorkState(state);
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
    if (src != kSourceTa)
        return;
    Preferences *p = prefs();
    if (p->taOrAlarm() == INTERRUPT_TA)
        p->setCancelTa(false);
    else if (p->taOrAlarm() == INTERRUPT_ALARM)
        p->setCancelAlarm(false);
}

void MainWindow::onStaionChanged(int freq, int band)
{
    Q_UNUSED(band)
    prefs()->setCurrPlayFreq(freq);
}

// --- hardware and steering-wheel keys ----------------------------------------

void MainWindow::beep(int state)
{
    m_mcu->triggerBeep(state);
}

void MainWindow::cancelInterrupt()
{
    Preferences *p = prefs();
    if (p->taOrAlarm() != INTERRUPT_NONE)
        beep(0);
    if (m_mainWidget)
        m_mainWidget->InterruptCancel();
    else
        McuManager::instance()->updateAudioStatus(McuManager::AudioStatusInterruptEnd);

    if (p->taOrAlarm() == INTERRUPT_TA) {
        m_radio->taAlarmCancel(1);
        onTaskEvtAlarmCancel();
        p->setCancelTa(true);
    } else if (p->taOrAlarm() == INTERRUPT_ALARM) {
        if (!p->taStatus() || p->cancelTa()) {
            onTaskEvtAlarmCancel();
            p->setCancelAlarm(true);
        } else {
            // The alarm came over a live announcement: the announcement comes back.
            p->setCancelAlarm(true);
            onCancelTaAlarm();
        }
    }
}

// Keys served before the screens see them. True when the key ends here.
bool MainWindow::serveAlwaysKey(int key, int phase)
{
    Preferences *p = prefs();
    const KeyRole role = keyRole(key);
    switch (role) {
    case KeyRole::CancelInterrupt:
        if (phase != Qx::KeyShortReleased)
            return false;
        cancelInterrupt();
        return true;
    case KeyRole::AfOff:
    case KeyRole::AfOn: {
        const bool on = role == KeyRole::AfOn;
        p->setAf(on);
        m_radio->setAf(on);
        m_radio->rdsCtrl(p->ta(), on, p->regional());
        return false;
    }
    case KeyRole::TaOff:
    case KeyRole::TaOn: {
        const bool on = role == KeyRole::TaOn;
        p->setTa(on);
        m_radio->rdsCtrl(on, p->af(), p->regional());
        m_radio->setTa(on);
        return false;
    }
    case KeyRole::LocalOff:
    case KeyRole::LocalOn: {
        const bool on = role == KeyRole::LocalOn;
        p->setLocal(on);
        m_radio->config(on, 1, 1);
        return false;
    }
    case KeyRole::AmOrFm3:
        if (!m_mainWidget) {
            p->setBand(BAND_AM1);
            m_radio->setband(BAND_AM1);
        } else if (p->isFM()) {
            p->setBand(BAND_FM3);
            p->setBand_FM(BAND_FM3);
            m_mainWidget->BandChanged();
        } else {
            m_mainWidget->scrollToPage(BAND_AM1);
        }
        return false;
    case KeyRole::Fm1OrAm2:
        if (!m_mainWidget) {
            p->setBand(BAND_FM1);
            m_radio->setband(BAND_FM1);
        } else if (p->isFM()) {
            m_mainWidget->scrollToPage(BAND_FM1);
        } else {
            p->setBand(BAND_AM2);
            p->setBand_AM(BAND_AM2);
            m_mainWidget->BandChanged();
        }
        return false;
    default:
        return false;
    }
}

// The window's own answer to the tuner keys, when no screen took them. Unlike
// the screen's remote keys, a press here is beeped but not consumed.
bool MainWindow::serveTunerKey(int key, int phase)
{
    const auto status = WorkStatus(prefs()->workState());
    const bool idle = status != WorkStatus::AutoStore;
    const KeyRole role = keyRole(key);
    switch (role) {
    case KeyRole::PresetNext:
    case KeyRole::PresetPrevious: {
        if (!idle)
            return false;
        const bool up = role == KeyRole::PresetNext;
        if (phase == Qx::KeyPressed) {
            beep(0);
            return false;
        }
        if (phase == Qx::KeyShortReleased) {
            up ? keys()->presetUP() : keys()->presetDown();
            return true;
        }
        if (phase == Qx::KeyLongPressed) {
            beep(1);
            up ? keys()->seekForward() : keys()->seekBackward();
            return true;
        }
        return false;
    }
    case KeyRole::Band:
        if (phase == Qx::KeyPressed) {
            beep(0);
            return false;
        }
        if (phase == Qx::KeyShortReleased) {
            keys()->changBand();
            return true;
        }
        return false;
    case KeyRole::PresetNumber: {
        const int preset = presetOfKey(key);
        switch (phase) {
        case Qx::KeyPressed:
            beep(0);
            if (!idle)
                keys()->presetSelect(preset);
            return true;
        case Qx::KeyShortReleased:
            if (idle)
                keys()->presetSelect(preset);
            return true;
        case Qx::KeyLongPressed:
            if (idle) {
                beep(1);
                keys()->savePreset(preset);
            }
            return true;
        default:
            return false;
        }
    }
    case KeyRole::PresetUp:
    case KeyRole::PresetDown: {
        if (!idle)
            return false;
        const bool up = role == KeyRole::PresetUp;
        switch (phase) {
        case Qx::KeyPressed:
            beep(0);
            up ? keys()->presetUP() : keys()->presetDown();
            return true;
        case Qx::KeyLongPressed:
            up ? keys()->presetUP() : keys()->presetDown();
            return true;
        case Qx::KeyShortReleased:
        case Qx::KeyLongReleased:
            return true;
        default:
            return false;
        }
    }
    case KeyRole::SeekDown:
    case KeyRole::SeekUp: {
        if (!idle)
            return false;
        const bool plus = role == KeyRole::SeekUp;
        switch (phase) {
        case Qx::KeyPressed:
            beep(0);
            return false;
        case Qx::KeyShortReleased:
            plus ? keys()->seekForward() : keys()->seekBackward();
            return true;
        case Qx::KeyLongPressed:
            beep(1);
            plus ? keys()->ManualPlusPressed() : keys()->ManualMinusPressed();
            return true;
        case Qx::KeyLongReleased:
            plus ? keys()->ManualPlusReleased() : keys()->ManualMinusReleased();
            return true;
        default:
            return false;
        }
    }
    case KeyRole::StopSearch:
        if (status != WorkStatus::AutoStore && !isSeek(status))
            return false;
        if (phase == Qx::KeyPressed) {
            beep(0);
            return true;
        }
        if (phase == Qx::KeyShortReleased) {
            m_radio->terminate();
            return true;
        }
        return false;
    default:
        return false;
    }
}

bool MainWindow::sourceKeyEvent(KeyEvent *e)
{
    if (!e) {
        TUNER_WAR() << "no key event.";
        return false;
    }
    const int key = e->key();
    const int phase = e->type();

    if (phase == Qx::KeyShortReleased || phase == Qx::KeyLongReleased) {
        m_repeatTimer.stop();
        m_repeatKey = 0;
    } else if (phase == Qx::KeyLongPressed && isPresetRepeatKey(key) && !m_repeatTimer.isActive()) {
        m_repeatTimer.start(kPresetRepeatMs, this);
        m_repeatKey = key;
    }

    if (serveAlwaysKey(key, phase))
        return true;
    if (m_mainWidget && m_mainWidget->windowKeyEvent(e))
        return true;

    Preferences *p = prefs();
    const bool cancelled = (p->taOrAlarm() == INTERRUPT_TA && p->cancelTa())
                           || (p->taOrAlarm() == INTERRUPT_ALARM && p->cancelAlarm());
    if (p->taOrAlarm() != INTERRUPT_NONE && !cancelled)
        return false;
    if (g_TunerCurDSPL == DisplayPtyList || g_TunerCurDSPL == DisplayPtySearching)
        return false;
    return serveTunerKey(key, phase);
}

} // namespace tuner

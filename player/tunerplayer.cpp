#include "tunerplayer.h"

#include "busproxies.h"
#include "busreply.h"
#include "interruptpopup.h"
#include "preferences.h"
#include "radiochecks.h"
#include "radioedge.h"
#include "pushbutton.h"
#include "scrolllabel.h"
#include "swipe.h"
#include "settingsutil.h"
#include "stationreport.h"
#include "theme.h"
#include "translator.h"
#include "tunerkeys.h"
#include "tunerlog.h"
#include "tuneroptions.h"
#include "ui_c20_003_tuner.h"

#include <QButtonGroup>
#include <QMouseEvent>
#include <QTimer>

namespace tuner {

namespace {

constexpr int kKeyLongPressMs = 2000;
constexpr int kSeekSettleMs = 350;

Preferences *prefs()
{
    return Preferences::getInstance();
}

bool afTaTpSupported()
{
    return cm::SettingsUtil::instance()->getRdsAfTaTpSupport() == 1;
}

// The form's point sizes are pixel sizes on the panel.
Ui::c20_003_tuner *buildForm(QWidget *screen)
{
    auto *form = new Ui::c20_003_tuner;
    form->setupUi(screen);
    cm::usePanelFontSizes(screen);
    return form;
}

} // namespace

TunerPlayer::TunerPlayer(QWidget *parent, RadioEdge *radioEdge)
    : QWidget(parent)
    , ui(buildForm(this))
    , m_line(ui)
    , m_pages(ui, this)
    , m_rds(ui, m_line, m_pages, m_dial)
    , m_banner(*this)
    , m_manual(*this)
    , m_touch(*this)
    , m_keys(*this)
    , m_search(ui)
    , m_bands(*this)
{
    m_radio = bus::createRadioProxy(this);
    m_mcu = bus::createMcuProxy(this);

    init_widget();
    m_lastFreq = prefs()->playFreq();
    ui->stackedWidget_tuner->setCurrentWidget(ui->page_tuner_01);
    ui->Icn_0020_rds->hide();
    ui->Icn_0021_tp->hide();
    ui->Txt_0018_rds_name->hide();
    ui->Txt_0037_rds_name->hide();

    m_seekSettle = new QTimer(this);
    connect(m_seekSettle, SIGNAL(timeout()), this, SLOT(onTimer()));
    initband();
    if (!radioEdge)
        radioEdge = new RadioEdge(m_radio, this);
    connect(radioEdge, SIGNAL(stationChanged(int,int)), this, SLOT(onFrequencyChanged(int,int)));
    connect(radioEdge, SIGNAL(ptyChanged(int,QString)), this, SLOT(onPtyChanged(int,QString)));
    connect(radioEdge, SIGNAL(work_status(int)), this, SLOT(onSeekState(int)));
    connect(radioEdge, SIGNAL(bandFMAMChang(int)), this, SLOT(onBandChangState(int)));

    synchronise();
    m_initialised = true;
}

// The getters go out together. Until they are all in (the UI thread waits
// only a moment), the screen shows the tuner's own state for what is missing.
void TunerPlayer::synchronise()
{
    namespace check = radiocheck;
    auto *batch = new bus::ReplyBatch(m_radio, this);
    const auto bandId = batch->add(m_radio->freqBandId(), "freqBandId");
    const auto ptyType = batch->add(m_radio->ptyType(), "ptyType");
    const auto ptyName = batch->add(m_radio->rdsName(), "rdsName");
    const auto workState = batch->add(m_radio->workStateType(), "workStateType");
    const auto show = [=](bool answered) {
        Preferences *p = prefs();
        m_lastFreq = p->playFreq();
        const bool bandRead = answered && bandId.ok();
        onFrequencyChanged(m_lastFreq, bandRead ? check::band(bandId.value(), p->band(), "freqBandId") : int(p->band()));
        if (answered && ptyType.ok() && ptyName.ok() && check::ptyCode(ptyType.value()))
            onPtyChanged(ptyType.value(), check::name(ptyName.value(), "rdsName"));
        onstatusChanged(p->rdsState());
        onRdsName(p->curRdsName());
        const bool workRead = answered && workState.ok();
        onWorkStatus(workRead ? check::workStatus(workState.value()) : p->workState());
    };
    if (!batch->waitUntil(QDeadlineTimer(bus::ReplyBatch::kBlockingWaitMs)))
        show(false);
    batch->whenFinished([=](const QStringList &failed) {
        if (!failed.isEmpty())
            TUNER_WAR() << "the radio service did not answer" << failed.join(QLatin1String(", ")) << "; the tuner's own state is shown.";
        show(true);
        batch->deleteLater();
    });
}

TunerPlayer::~TunerPlayer()
{
    delete ui;
}

void TunerPlayer::init_widget()
{
    const auto longPress = [this](QWidget *key) {
        auto *helper = new cm::PushButton(key, this);
        helper->setLongPressedInterval(kKeyLongPressMs);
        return helper;
    };
    cm::PushButton *plus = longPress(ui->Key_0028_manual_plus);
    cm::PushButton *minus = longPress(ui->Key_0027_manual_minus);
    connect(plus, SIGNAL(shortClicked()), this, SLOT(onManualPlusClicked()));
    connect(plus, SIGNAL(longPressed()), this, SLOT(onManualPlusPressed()));
    connect(plus, SIGNAL(longReleased()), this, SLOT(onManualPlusReleased()));
    connect(minus, SIGNAL(shortClicked()), this, SLOT(onManualMinusClicked()));
    connect(minus, SIGNAL(longPressed()), this, SLOT(onManualMinusPressed()));
    connect(minus, SIGNAL(longReleased()), this, SLOT(onManualMinusReleased()));
    connect(longPress(ui->Key_0029_seek_plus), SIGNAL(shortClicked()), this, SLOT(onSeekPlus()));
    connect(longPress(ui->Key_0026_seek_minus), SIGNAL(shortClicked()), this, SLOT(onSeekMinus()));
    connect(longPress(ui->Key_0025_option_menu), SIGNAL(shortClicked()), this, SLOT(onOptionMenu()));

    ui->Txt_0017_band_name->setAttribute(Qt::WA_TransparentForMouseEvents);

    // The theme's digit font.
    for (QLabel *label : {static_cast<QLabel *>(ui->Txt_0035_rds_freq), ui->Txt_0019_rds_freq})
        label->setFont(cm::digitFont(label->font().pixelSize()));
    connect(ui->Txt_0037_rds_name, SIGNAL(clicked()), ui->Txt_0037_rds_name, SLOT(slotClicked()));
}

// --- frequency model ---------------------------------------------------------------

void TunerPlayer::setStep(int step)
{
    m_dial.setStep(step, prefs()->isFM());
}

void TunerPlayer::recalc()
{
    m_dial.setStep(m_dial.step(), prefs()->isFM());
}

void TunerPlayer::setValue(int value)
{
    if (!m_dial.setValue(value))
        return;
    m_line.showFrequency(normalValue(value));
    m_lastFreq = value;
}

int TunerPlayer::freqNormalize(int freq, int low, int high, int step)
{
    return FrequencyDial::normalize(freq, low, high, step);
}

bool TunerPlayer::isValidFreq()
{
    const int freq = bus::replyValue(m_radio->frequency(), "frequency");
    return freqNormalize(freq, prefs()->lowFreq(), prefs()->highFreq(), prefs()->stepFreq()) > 0;
}

// A manual step leaves the preset that was playing.
void TunerPlayer::unlightPlayingPreset()
{
    if (!validPreset(prefs()->playFreqId()))
        return;
    m_pages.unlight(prefs()->band());
    prefs()->setCurrPlayFreqId(kNoPreset);
    prefs()->setPresetIndex(0);
}

void TunerPlayer::manualPlus()
{
    unlightPlayingPreset();
    setValue(m_dial.next(true));
}

void TunerPlayer::manualMinus()
{
    unlightPlayingPreset();
    setValue(m_dial.next(false));
}

// The band name and the preset pages of one family.
void TunerPlayer::showBandFamily(bool fm)
{
    ui->Txt_0017_band_name->setText(Translator::translate(fm ? 39 : 49));
    m_pages.showFamily(fm);
}

void TunerPlayer::showUnit(bool fm)
{
    m_line.showUnit(Translator::translate(fm ? 40 : 50));
}

void TunerPlayer::retranslate()
{
    const bool fm = prefs()->isFM();
    ui->Txt_0017_band_name->setText(Translator::translate(fm ? 39 : 49));
    showUnit(fm);
    if (m_search.isRunning()) {
        if (const int id = searchTextId(m_workStatus))
            m_search.show(500, Translator::translate(id));
    }
    if (c35_011_interrupt_on_tuner *popup = m_banner.popup())
        popup->retranslate();
}

void TunerPlayer::updateBandInfo()
{
    Preferences *p = prefs();
    showBandFamily(p->isFM());
    if (!p->isFM()) {
        ui->Icn_0015_rds->hide();
        ui->Icn_0016_tp->hide();
        ui->Txt_0019_rds_freq->show();
        ui->Txt_0020_rds_unit->show();
        ui->Txt_0018_rds_name->hide();
    }
    showUnit(p->isFM());
    updateLabelFreq();
    setValue(p->playFreq());
    m_pages.showPageImage(p->band());
}

void TunerPlayer::updateLabelFreq()
{
    Preferences *p = prefs();
    setRange(p->lowFreq(), p->highFreq());
    setStep(p->stepFreq());
    int values[kFmBandCount * kPresetCount] = {};
    const int count = p->isFM() ? 18 : 12;
    p->favorites(values, count);
    setLabelValue(values, count);
    if (p->isFM())
        updateRdsName();
}

// --- presets -----------------------------------------------------------------------

void TunerPlayer::setLabelValue(const int *values, int count)
{
    const int firstRow = prefs()->isFM() ? BAND_FM1 : BAND_AM1;
    const int rows = prefs()->isFM() ? kFmBandCount : kAmBandCount;
    for (int i = 0; i < count && i < rows * kPresetCount; ++i)
        m_pages.setText(firstRow + i / kPresetCount, i % kPresetCount, normalValue(values[i]), false);
}

void TunerPlayer::updateRdsName()
{
    if (!prefs()->isFM())
        return;
    for (int band = BAND_FM1; band <= BAND_FM3; ++band) {
        for (int id = 0; id < kPresetCount; ++id) {
            const QString name = prefs()->rdsName(Band(band), id);
            if (!name.isEmpty())
                m_pages.setText(band, id, Preferences::delControlChar(name), true);
        }
    }
}

void TunerPlayer::checkedId(int id)
{
    const int band = prefs()->band();
    m_pages.unlight(band);
    m_pages.light(band, id);
    prefs()->setCurrPlayFreqId(id);
}

void TunerPlayer::highPreset()
{
    const int band = prefs()->band();
    m_pages.scrollToBand(band, true);
    if (validPreset(prefs()->playFreqId()))
        m_pages.light(band, prefs()->playFreqId());
}

void TunerPlayer::clearCurFreqId()
{
    prefs()->clearFreqId(prefs()->band(), kNoPreset);
    m_pages.unlight(prefs()->band());
}

void TunerPlayer::clearFreqId()
{
    const int first = prefs()->isFM() ? BAND_FM1 : BAND_AM1;
    const int last = prefs()->isFM() ? BAND_FM3 : BAND_AM2;
    for (int band = first; band <= last; ++band) {
        prefs()->clearFreqId(Band(band), kNoPreset);
        m_pages.unlight(band);
    }
}

void TunerPlayer::scrollToPage(int band)
{
    if (!Preferences::isValidBand(band)) {
        TUNER_WAR() << band << "is not a band, page not changed.";
        return;
    }
    prefs()->setBand(Band(band));
    m_pages.scrollToBand(band, true);
}

void TunerPlayer::saveFavorite(int id, int freq)
{
    prefs()->setFavoriteFreq(id, freq);
}

void TunerPlayer::setPresetTaAf(int id)
{
    if (!afTaTpSupported())
        return;
    Preferences *p = prefs();
    const bool ta = p->fmTA(id);
    const bool af = p->fmAf(id);
    p->setAf(af);
    p->setTa(ta);
    m_radio->setTa(ta);
    m_radio->setAf(af);
}

void TunerPlayer::onButGroupClicked(int id)
{
    m_touch.clicked(id, false);
}

void TunerPlayer::onButGroupPressed(int id)
{
    m_touch.pressed(id);
}

// A swipe across the presets never stores one.
void TunerPlayer::onScrollerState(QScroller::State state)
{
    if (state == QScroller::Dragging || state == QScroller::Scrolling)
        m_touch.swiped();
}

void TunerPlayer::onAutoScan()
{
    clearRdsState();
    if (status() != WorkStatus::Idle) {
        stopAndRetune();
        return;
    }
    Preferences *p = prefs();
    QButtonGroup *presets = m_pages.group(p->band());
    if (presets && presets->checkedId() == -1)
        p->clearBtmFreqId();
    p->btmStart();
    clearFreqId();
    p->clearBtmFreqId();
    m_radio->autoScan();
    m_tuneRequested = true;
}

void TunerPlayer::onAutoScanCompleted(QString)
{
    Preferences *p = prefs();
    updateLabelFreq();
    const int id = p->numberKeyInter() ? p->btmFreqIdAfter() : p->curBandFreqId();
    const int band = p->btmband();
    QButtonGroup *presets = m_pages.group(band);
    if (!presets)
        return;
    presets->setExclusive(true);
    if (validPreset(id) && p->favoritBandAt(Band(band), id) == p->playFreq()) {
        presets->button(id)->setChecked(true);
        p->setCurrPlayFreqId(id);
    }
}

void TunerPlayer::BTMafterHLightFreq()
{
    Preferences *p = prefs();
    const int id = p->numberKeyInter() ? p->btmFreqIdAfter() : p->curBandFreqId();
    p->setNumberKeyInter(false);
    m_pages.light(p->band(), id);
    if (validPreset(id))
        p->setCurrPlayFreqId(id);
}

// --- tuning keys -------------------------------------------------------------------

void TunerPlayer::beep(int state)
{
    m_mcu->triggerBeep(state);
}

void TunerPlayer::clearRdsState()
{
    onstatusChanged(0);
    prefs()->setRdsStatus(0);
    onRdsName(QString());
}

void TunerPlayer::stopAndRetune()
{
    m_radio->terminate();
    m_radio->tune(prefs()->playFreq());
}

// A seek while searching only stops the search; false then.
bool TunerPlayer::startSeek(bool up)
{
    clearRdsState();
    if (isSeek(status()) || isPtySearch(status())) {
        stopAndRetune();
        return false;
    }
    clearCurFreqId();
    prefs()->setPresetIndex(0);
    up ? m_radio->seekForward() : m_radio->seekBackward();
    return true;
}

void TunerPlayer::seek(bool up)
{
    beep(0);
    if (status() == WorkStatus::AutoStore || !startSeek(up))
        return;
    m_tuneRequested = true;
    m_seeking = true;
}

void TunerPlayer::onSeekPlus()
{
    seek(true);
}

void TunerPlayer::onSeekMinus()
{
    seek(false);
}

void TunerPlayer::onOptionMenu()
{
    beep(0);
    emit showOptionWnd();
}

bool TunerPlayer::onTerminate()
{
    if (status() == WorkStatus::AutoStore) {
        m_radio->terminate();
        return true;
    }
    if (status() != WorkStatus::Idle || prefs()->PTYSeachState() == kPtySearching) {
        stopAndRetune();
        return true;
    }
    return false;
}

void TunerPlayer::mousePressEvent(QMouseEvent *event)
{
    m_pressPoint = event->pos();
    QWidget::mousePressEvent(event);
}

void TunerPlayer::mouseReleaseEvent(QMouseEvent *event)
{
    const QPoint press = m_pressPoint;
    m_pressPoint = QPoint(-1, -1);
    QWidget::mouseReleaseEvent(event);
    switch (swipeBetween(press, event->pos())) {
    case Swipe::Right:
        onSeekPlus();
        break;
    case Swipe::Left:
        onSeekMinus();
        break;
    case Swipe::Up:
        beep(0);
        IrUpSelectFreqId();
        break;
    case Swipe::Down:
        beep(0);
        IrDownSelectFreqId();
        break;
    case Swipe::None:
        break;
    }
}

// --- reports from the radio service -------------------------------------------------

void TunerPlayer::onFrequencyChanged(int freq, int band)
{
    Preferences *p = prefs();
    if (band < 0)
        band = p->band();
    if (m_manual.repeating())
        return; // the display belongs to the key being held

    const bool inFm = freq >= p->fmMinFreq() && freq <= p->fmMaxFreq();
    const bool inAm = freq >= p->amMinFreq() && freq <= p->amMaxFreq();
    const int f = storeStationReport(p, freq, band);
    setRange(p->lowFreq(), p->highFreq());
    setStep(p->stepFreq());
    updateBandInfo();

    if (f <= 0 && (m_tuneRequested || band != p->band())) {
        p->setBand(Band(band));
        if (inFm)
            p->setPlayFreq(p->band_FM(), freq);
        if (inAm)
            p->setPlayFreq(p->band_AM(), freq);
        m_tuneRequested = false;
    }
    if (f <= 0) {
        m_lastFreq = p->playFreq();
        setValue(m_lastFreq);
        onWorkStatus(0);
        return;
    }
    if (band != p->band())
        return;
    if (!m_manual.stepping()) {
        m_seeking = false;
        setValue(f);
    }
    p->setCurrPlayFreq(f);
    const int id = p->playFreqId();
    if (validPreset(id) && p->favoritAt(id) == f)
        onRdsName(p->rdsName(Band(band), id));
    if (m_manual.stepping())
        m_manual.unlock();
    showRdsUnit();
}

// The end of a search is shown a moment late, so that the final station report comes first.
void TunerPlayer::onSeekState(int state)
{
    if (WorkStatus(state) == WorkStatus::Idle) {
        m_workStatus = state;
        m_seekSettle->start(kSeekSettleMs);
        return;
    }
    onWorkStatus(state);
}

void TunerPlayer::onTimer()
{
    m_seekSettle->stop();
    onWorkStatus(m_workStatus);
}

// The status line's text while the service works, 0 when it is idle.
int TunerPlayer::searchTextId(int workStatus) const
{
    const bool local = prefs()->isLocal();
    switch (WorkStatus(workStatus)) {
    case WorkStatus::AutoStore:
        return 45;
    case WorkStatus::SeekUp:
        return local ? 43 : 41;
    case WorkStatus::SeekDown:
        return local ? 44 : 42;
    case WorkStatus::PtySearchUp:
        return 48;
    case WorkStatus::PtySearchDown:
        return 47;
    default:
        return 0;
    }
}

void TunerPlayer::onWorkStatus(int state)
{
    m_workStatus = state;
    const auto reported = WorkStatus(state);
    if (reported == WorkStatus::AutoStore)
        m_search.show(500, Translator::translate(searchTextId(state)));
    else if (isSeek(reported))
        m_search.show(400, Translator::translate(searchTextId(state)));
    if (reported == WorkStatus::Idle) {
        m_search.stop();
        setValue(m_lastFreq);
        showRdsUnit();
    }
    if (afTaTpSupported() && prefs()->isFM() && isPtySearch(reported)) {
        m_search.show(500, Translator::translate(searchTextId(state)));
        prefs()->setPresetIndex(0);
        clearCurFreqId();
    }
}

void TunerPlayer::onSerchTimer() {}

// --- RDS ---------------------------------------------------------------------------

void TunerPlayer::showRdsUnit()
{
    showUnit(prefs()->isFM());
}

void TunerPlayer::onPtyChanged(int pty, QString)
{
    if (pty == 31)
        return;
    emit PTYCurrentType(pty);
    prefs()->setPtyItem(pty);
}

void TunerPlayer::onSetTa()
{
    const bool ta = prefs()->ta();
    m_radio->rdsCtrl(ta, prefs()->af(), prefs()->regional());
    m_radio->setTa(ta);
}

void TunerPlayer::onSetAf()
{
    const bool af = prefs()->af();
    m_radio->setAf(af);
    m_radio->rdsCtrl(prefs()->ta(), af, prefs()->regional());
}

void TunerPlayer::onSetRegional()
{
    m_radio->rdsCtrl(prefs()->ta(), prefs()->af(), prefs()->regional());
}

// A running search restarts from the stored frequency under the new sensitivity.
void TunerPlayer::onSetLocal()
{
    m_radio->config(prefs()->isLocal(), 1, 1);
    if (status() == WorkStatus::AutoStore) {
        m_radio->terminate();
    } else if (isSeek(status())) {
        stopAndRetune();
    }
}

void TunerPlayer::onSetPty(int value)
{
    clearRdsState();
    if (status() == WorkStatus::AutoStore) {
        m_radio->terminate();
    } else if (isSeek(status())) {
        stopAndRetune();
    }
    clearCurFreqId();
    prefs()->setPresetIndex(0);
    m_radio->ptySearch(value);
}

// --- remote and steering keys ------------------------------------------------------

// A running search is only stopped, never stepped over.
bool TunerPlayer::stopRunningSearch()
{
    const SearchGate gate = searchGate(status());
    if (gate == SearchGate::Stop)
        m_radio->terminate();
    else if (gate == SearchGate::StopAndRetune)
        stopAndRetune();
    return gate != SearchGate::Run;
}

} // namespace tuner

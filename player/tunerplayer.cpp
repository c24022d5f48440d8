#include "tunerplayer.h"

#include "busproxies.h"
#include "busreply.h"
#include "interruptpopup.h"
#include "nilo_radioservice_interface.h"
#include "preferences.h"
#include "pushbutton.h"
#include "radiochecks.h"
#include "radioedge.h"
#include "rdsswitches.h"
#include "scrolllabel.h"
#include "shownstation.h"
#include "stationreport.h"
#include "swipe.h"
#include "theme.h"
#include "translator.h"
#include "tunerlog.h"
#include "ui_c20_003_tuner.h"

#include <QMouseEvent>
#include <QTimer>

namespace tuner {

namespace {

constexpr int kKeyLongPressMs = 2000;
constexpr int kSeekSettleMs = 350;

// The form's point sizes are pixel sizes on the panel.
Ui::c20_003_tuner *buildForm(QWidget *screen)
{
    auto *form = new Ui::c20_003_tuner;
    form->setupUi(screen);
    cm::usePanelFontSizes(screen);
    return form;
}

} // namespace

TunerPlayer::TunerPlayer(QWidget *parent, RadioEdge *radioEdge, ShownStation *shown)
    : QWidget(parent)
    , ui(buildForm(this))
    , m_shown(shown ? shown : new ShownStation(this))
    , m_control(bus::createRadioProxy(this), bus::createMcuProxy(this))
    , m_interrupts(m_control.radio())
    , m_line(ui, m_shown)
    , m_frequency(m_line, m_control)
    , m_pages(ui, this)
    , m_labels(m_pages, m_frequency)
    , m_rds(ui, m_line, m_pages, m_frequency, m_control)
    , m_banner(this, m_line, m_interrupts)
    , m_bands(*this, m_control, m_pages, m_labels, m_frequency, m_rds, m_line, m_banner, ui->Key_0020_switch_band,
              ui->Txt_0017_band_name)
    , m_manual(*this, m_frequency, m_pages, m_control, m_rds, ui->Key_0028_manual_plus, ui->Key_0027_manual_minus)
    , m_touch(m_control, m_pages, m_labels, m_frequency, m_line, m_rds)
    , m_keys(*this, m_control, m_pages, m_labels, m_touch, m_bands, m_manual, m_rds, m_banner)
    , m_search(ui)
    , m_autoStore(m_control, m_pages, m_labels, m_rds)
{
    connect(&m_banner, SIGNAL(raisedHidden()), this, SIGNAL(taShowTunerPlayer()));
    connect(&m_interrupts, SIGNAL(alarmCancel()), this, SIGNAL(alarmCancel()));
    connect(&m_interrupts, SIGNAL(cancelTaAlarm()), this, SIGNAL(cancelTaAlarm()));
    // Idle is shown before the option list hears of the switch.
    connect(&m_bands, &BandSwitch::familySwitched, this, [this] { onWorkStatus(0); });
    connect(&m_bands, SIGNAL(familySwitched()), this, SIGNAL(showOptionItem()));

    init_widget();
    m_control.setLastFrequency(prefs()->playFreq());
    ui->stackedWidget_tuner->setCurrentWidget(ui->page_tuner_01);
    ui->Icn_0020_rds->hide();
    ui->Icn_0021_tp->hide();
    ui->Txt_0018_rds_name->hide();
    ui->Txt_0037_rds_name->hide();

    m_seekSettle = new QTimer(this);
    m_seekSettle->setSingleShot(true);
    connect(m_seekSettle, SIGNAL(timeout()), this, SLOT(onTimer()));
    m_control.followStateOf(radioEdge);
    initband();
    if (!radioEdge)
        radioEdge = new RadioEdge(m_control.radio(), this);
    connect(radioEdge, SIGNAL(stationChanged(int,int)), this, SLOT(onFrequencyChanged(int,int)));
    connect(radioEdge, SIGNAL(ptyChanged(int,QString)), this, SLOT(onPtyChanged(int,QString)));
    connect(radioEdge, SIGNAL(work_status(int)), this, SLOT(onSeekState(int)));
    connect(radioEdge, SIGNAL(bandFMAMChang(int)), this, SLOT(onBandChangState(int)));

    // The frequency is the one taken above, before initband() turned to the
    // family's last band.
    showServiceState();
}

// A service new on the bus has told its state anew: the frequency with it.
void TunerPlayer::synchronise()
{
    m_control.setLastFrequency(prefs()->playFreq());
    showServiceState();
}

// The getters go out together. Until they are all in (the UI thread waits
// only a moment), the screen shows the tuner's own state for what is missing.
void TunerPlayer::showServiceState()
{
    namespace check = radiocheck;
    NiloRadioServiceInterface *radio = m_control.radio();
    auto *batch = new bus::ReplyBatch(radio, this);
    const auto bandId = batch->add(radio->freqBandId(), "freqBandId");
    const auto ptyType = batch->add(radio->ptyType(), "ptyType");
    const auto ptyName = batch->add(radio->rdsName(), "rdsName");
    const auto workState = batch->add(radio->workStateType(), "workStateType");
    const auto show = [=](bool complete) {
        Preferences *p = prefs();
        const bool bandRead = complete && bandId.answered();
        onFrequencyChanged(m_control.lastFrequency(),
                           bandRead ? check::band(bandId.value(), p->band(), "freqBandId") : int(p->band()));
        if (complete && ptyType.answered() && ptyName.answered() && check::ptyCode(ptyType.value()))
            onPtyChanged(ptyType.value(), check::name(ptyName.value(), "rdsName"));
        onstatusChanged(p->rdsState());
        onRdsName(p->curRdsName());
        const bool workRead = complete && workState.answered();
        onWorkStatus(workRead ? workState.value() : p->workState());
    };
    const bool inTime = batch->waitUntil(QDeadlineTimer(bus::ReplyBatch::kBlockingWaitMs));
    if (!inTime)
        show(false);
    batch->whenFinished([=](const QStringList &failed) {
        if (!failed.isEmpty())
            TUNER_WAR() << "the radio service did not answer" << failed.join(QLatin1String(", "))
                        << "; the tuner's own state is shown.";
        // Late answers come after the window fed the service's state: the
        // frequency is the one stored by now.
        if (!inTime)
            m_control.setLastFrequency(prefs()->playFreq());
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

void TunerPlayer::setStep(int step)
{
    m_frequency.setStep(step);
}

void TunerPlayer::recalc()
{
    m_frequency.setStep(m_frequency.step());
}

void TunerPlayer::setValue(int value)
{
    m_frequency.setValue(value);
}

bool TunerPlayer::isValidFreq()
{
    const int freq = bus::replyValue(m_control.radio()->frequency(), "frequency");
    return freqNormalize(freq, prefs()->lowFreq(), prefs()->highFreq(), prefs()->stepFreq()) > 0;
}

void TunerPlayer::retranslate()
{
    m_bands.retranslate();
    showRdsUnit();
    if (m_search.isRunning())
        m_search.show(m_control.workStatus());
    if (c35_011_interrupt_on_tuner *popup = m_banner.popup())
        popup->retranslate();
}

void TunerPlayer::updateBandInfo()
{
    Preferences *p = prefs();
    m_bands.showFamily(p->isFM());
    if (!p->isFM())
        m_line.showAmFrequencyPage();
    showRdsUnit();
    updateLabelFreq();
    setValue(p->playFreq());
    m_pages.showPageImage(p->band());
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

// A swipe across the presets never stores one.
void TunerPlayer::onScrollerState(QScroller::State state)
{
    if (state == QScroller::Dragging || state == QScroller::Scrolling)
        m_touch.swiped();
}

void TunerPlayer::seek(bool up)
{
    m_control.beep(0);
    if (m_control.workStatus() == WorkStatus::AutoStore || !startSeek(up))
        return;
    m_control.seekStarted();
}

void TunerPlayer::onOptionMenu()
{
    m_control.beep(0);
    emit showOptionWnd();
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
        m_control.beep(0);
        IrUpSelectFreqId();
        break;
    case Swipe::Down:
        m_control.beep(0);
        IrDownSelectFreqId();
        break;
    case Swipe::None:
        break;
    }
}

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
    m_frequency.followBand();
    updateBandInfo();

    if (f <= 0 && (m_control.tuneRequested() || band != p->band())) {
        p->setBand(Band(band));
        if (inFm)
            p->setPlayFreq(p->band_FM(), freq);
        if (inAm)
            p->setPlayFreq(p->band_AM(), freq);
        m_control.tuneReported();
    }
    if (f <= 0) {
        m_control.setLastFrequency(p->playFreq());
        m_frequency.showLast();
        onWorkStatus(0);
        return;
    }
    if (band != p->band())
        return;
    if (!m_manual.stepping()) {
        m_control.seekEnded();
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
        m_control.setWorkStatus(WorkStatus::Idle);
        m_seekSettle->start(kSeekSettleMs);
        return;
    }
    onWorkStatus(state);
}

void TunerPlayer::onTimer()
{
    onWorkStatus(int(m_control.workStatus()));
}

void TunerPlayer::onWorkStatus(int state)
{
    const auto reported = WorkStatus(state);
    m_control.setWorkStatus(reported);
    if (reported == WorkStatus::AutoStore || isSeek(reported))
        m_search.show(reported);
    if (reported == WorkStatus::Idle) {
        m_search.stop();
        m_frequency.showLast();
        showRdsUnit();
    }
    if (afTaTpSupported() && prefs()->isFM() && isPtySearch(reported)) {
        m_search.show(reported);
        prefs()->setPresetIndex(0);
        clearCurFreqId();
    }
}

void TunerPlayer::showRdsUnit()
{
    m_line.showUnit(prefs()->isFM());
}

void TunerPlayer::onPtyChanged(int pty, QString)
{
    if (pty == 31)
        return;
    emit PTYCurrentType(pty);
    prefs()->setPtyItem(pty);
}

// A running search restarts from the stored frequency under the new sensitivity.
void TunerPlayer::onSetLocal()
{
    m_control.radio()->config(prefs()->isLocal(), 1, 1);
    m_control.stopStoreOrSeek();
}

void TunerPlayer::onSetPty(int value)
{
    m_rds.clear();
    m_control.stopStoreOrSeek();
    clearCurFreqId();
    prefs()->setPresetIndex(0);
    m_control.radio()->ptySearch(value);
}

} // namespace tuner

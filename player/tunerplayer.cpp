#include "tunerplayer.h"

#include "busproxies.h"
#include "busreply.h"
#include "colorcontrol.h"
#include "interruptpopup.h"
#include "mcumanager.h"
#include "preferences.h"
#include "radiochecks.h"
#include "radioedge.h"
#include "pushbutton.h"
#include "scrolllabel.h"
#include "scrollmanage.h"
#include "settingsutil.h"
#include "theme.h"
#include "translator.h"
#include "tunerlog.h"
#include "tuneroptions.h"
#include "ui_c20_003_tuner.h"

#include <QButtonGroup>
#include <QMouseEvent>
#include <QPushButton>
#include <QScrollArea>
#include <QTimer>
#include <QtMath>

namespace tuner {

namespace {

constexpr int kKeyLongPressMs = 2000;
constexpr int kPresetHoldMs = 1500;
constexpr int kManualRepeatMs = 300;
constexpr int kBandKeyLockMs = 3000;
// A manual step the service never confirms must not leave its key dead.
constexpr int kManualKeyReleaseMs = 3000;
constexpr int kSeekSettleMs = 350;
constexpr int kSwipeDistance = 101;
constexpr int kSwipeAreaBottom = 311;

Preferences *prefs()
{
    return Preferences::getInstance();
}

bool afTaTpSupported()
{
    return cm::SettingsUtil::instance()->getRdsAfTaTpSupport() == 1;
}

bool validPreset(int id)
{
    return id >= 0 && id <= 5;
}

const char *const kPageImages[] = {
    ":/Resource/tuner/Icn_0067_page_fm1_n.png", ":/Resource/tuner/Icn_0067_page_fm2_n.png",
    ":/Resource/tuner/Icn_0067_page_fm3_n.png", ":/Resource/tuner/Icn_0067_page_am1_n.png",
    ":/Resource/tuner/Icn_0067_page_am2_n.png",
};

} // namespace

TunerPlayer::TunerPlayer(QWidget *parent, RadioEdge *radioEdge)
    : QWidget(parent)
    , ui(new Ui::c20_003_tuner)
{
    ui->setupUi(this);
    cm::usePanelFontSizes(this);
    m_radio = bus::createRadioProxy(this);
    m_mcu = bus::createMcuProxy(this);

    init_widget();
    m_lastFreq = prefs()->playFreq();
    m_dots = ui->Txt_0384_status2->text();
    ui->Txt_0384_status2->setAlignment(Qt::AlignLeft | Qt::AlignBottom);
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

// The getters go out together and are collected under one deadline; what
// could not be read is taken from the tuner's own state.
void TunerPlayer::synchronise()
{
    namespace check = radiocheck;
    bus::ReplyBatch batch(m_radio);
    const auto bandId = batch.add(m_radio->freqBandId(), "freqBandId");
    const auto ptyType = batch.add(m_radio->ptyType(), "ptyType");
    const auto ptyName = batch.add(m_radio->rdsName(), "rdsName");
    const auto workState = batch.add(m_radio->workStateType(), "workStateType");
    const QStringList failed = batch.collect();
    if (!failed.isEmpty())
        TUNER_WAR() << "the radio service did not answer" << failed.join(QLatin1String(", ")) << "; the tuner's own state is shown.";

    Preferences *p = prefs();
    m_lastFreq = p->playFreq();
    onFrequencyChanged(m_lastFreq, bandId.ok() ? check::band(bandId.value(), p->band(), "freqBandId") : int(p->band()));
    if (ptyType.ok() && ptyName.ok() && check::ptyCode(ptyType.value()))
        onPtyChanged(ptyType.value(), check::name(ptyName.value(), "rdsName"));
    onstatusChanged(p->rdsState());
    onRdsName(p->curRdsName());
    onWorkStatus(workState.ok() ? check::workStatus(workState.value()) : p->workState());
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

    const QList<QList<QPushButton *>> buttons{
        {ui->Key_0030_p1, ui->Key_0031_p2, ui->Key_0032_p3, ui->Key_0033_p4, ui->Key_0034_p5, ui->Key_0035_p6},
        {ui->Key_0393_p7, ui->Key_0394_p8, ui->Key_0395_p9, ui->Key_0396_p10, ui->Key_0397_p11, ui->Key_0398_p12},
        {ui->Key_0399_p13, ui->Key_0400_p14, ui->Key_0401_p15, ui->Key_0402_p16, ui->Key_0403_p17, ui->Key_0404_p18},
        {ui->Key_0406_p1, ui->Key_0407_p2, ui->Key_0408_p3, ui->Key_0409_p4, ui->Key_0410_p5, ui->Key_0411_p6},
        {ui->Key_0412_p7, ui->Key_0413_p8, ui->Key_0414_p9, ui->Key_0415_p10, ui->Key_0416_p11, ui->Key_0417_p12},
    };
    m_labels = {
        {ui->Txt_0023_f1, ui->Txt_0024_f2, ui->Txt_0025_f3, ui->Txt_0026_f4, ui->Txt_0027_f5, ui->Txt_0028_f6},
        {ui->Txt_0466_f7, ui->Txt_0467_f8, ui->Txt_0468_f9, ui->Txt_0469_f10, ui->Txt_0470_f11, ui->Txt_0471_f12},
        {ui->Txt_0472_f13, ui->Txt_0473_f14, ui->Txt_0474_f15, ui->Txt_0475_f16, ui->Txt_0476_f17, ui->Txt_0477_f18},
        {ui->Txt_0481_f1, ui->Txt_0482_f2, ui->Txt_0483_f3, ui->Txt_0484_f4, ui->Txt_0485_f5, ui->Txt_0486_f6},
        {ui->Txt_0487_f7, ui->Txt_0488_f8, ui->Txt_0489_f9, ui->Txt_0490_f10, ui->Txt_0491_f11, ui->Txt_0492_f12},
    };
    for (int band = 0; band < buttons.size(); ++band) {
        auto *presets = new QButtonGroup(this);
        for (int id = 0; id < buttons[band].size(); ++id) {
            QPushButton *button = buttons[band][id];
            // The form gives the first page its number images; the other
            // pages share them, so each image is decoded once.
            if (band > 0)
                button->setIcon(buttons[0][id]->icon());
            button->setCheckable(true);
            presets->addButton(button, id);
            new cm::ColorControl(button, m_labels[band][id], this);
            m_labels[band][id]->setFont(cm::digitFont(m_labels[band][id]->font().pixelSize()));
        }
        connect(presets, SIGNAL(buttonClicked(int)), this, SLOT(onButGroupClicked(int)));
        connect(presets, SIGNAL(buttonPressed(int)), this, SLOT(onButGroupPressed(int)));
        connect(presets, SIGNAL(buttonReleased(int)), this, SLOT(onButGroupReleased(int)));
        m_groups.append(presets);
    }
    ui->Txt_0017_band_name->setAttribute(Qt::WA_TransparentForMouseEvents);

    // The theme's digit font; the footer shows through the preset pages.
    for (QLabel *label : {ui->Txt_0035_rds_freq, ui->Txt_0019_rds_freq})
        label->setFont(cm::digitFont(label->font().pixelSize()));
    for (QScrollArea *area : {ui->scrollArea_tuner, ui->scrollArea_tuner_am}) {
        area->viewport()->setAutoFillBackground(false);
        area->widget()->setAutoFillBackground(false);
    }
    connect(ui->Txt_0037_rds_name, SIGNAL(clicked()), ui->Txt_0037_rds_name, SLOT(slotClicked()));
}

// --- the active display line -------------------------------------------------------

int TunerPlayer::displayLine() const
{
    return cm::SettingsUtil::instance()->getRadioInfoDispLine();
}

// Mode 1 uses page_tuner_01's widget, mode 0 page_tuner_02's; any other mode none.
QLabel *TunerPlayer::byDisplayLine(QLabel *mode1, QLabel *mode0) const
{
    const int mode = displayLine();
    return mode == 1 ? mode1 : mode == 0 ? mode0 : nullptr;
}

QLabel *TunerPlayer::freqLabel() const
{
    return byDisplayLine(ui->Txt_0035_rds_freq, ui->Txt_0019_rds_freq);
}

QLabel *TunerPlayer::unitLabel() const
{
    return byDisplayLine(ui->Txt_0036_rds_unit, ui->Txt_0020_rds_unit);
}

QLabel *TunerPlayer::nameLabel() const
{
    return byDisplayLine(ui->Txt_0037_rds_name, ui->Txt_0018_rds_name);
}

QLabel *TunerPlayer::rdsIcon() const
{
    return byDisplayLine(ui->Icn_0020_rds, ui->Icn_0015_rds);
}

QLabel *TunerPlayer::tpIcon() const
{
    return byDisplayLine(ui->Icn_0021_tp, ui->Icn_0016_tp);
}

// --- frequency model ---------------------------------------------------------------

void TunerPlayer::setStep(int step)
{
    m_step = step;
    recalc();
}

void TunerPlayer::recalc()
{
    m_decimals = !prefs()->isFM() ? 0 : m_step > 9 ? 1 : 2;
}

void TunerPlayer::setRange(int low, int high)
{
    m_minimum = low;
    m_maximum = high;
}

void TunerPlayer::setValue(int value)
{
    if (value < m_minimum || value > m_maximum)
        return;
    m_value = value;
    const int mode = displayLine();
    if (mode == 1) {
        ui->stackedWidget_tuner->setCurrentWidget(ui->page_tuner_01);
        ui->Txt_0035_rds_freq->setText(normalValue(value));
    } else if (mode == 0) {
        ui->stackedWidget_tuner->setCurrentWidget(ui->page_tuner_02);
        ui->Txt_0019_rds_freq->setText(normalValue(value));
    }
    m_lastFreq = value;
}

// 8750 reads 87.50 with two decimals, 87.5 with one; AM values as they are.
QString TunerPlayer::normalValue(int value) const
{
    QString digits = QString::number(value);
    if (m_decimals == 1)
        digits.chop(1);
    if (m_decimals != 0) {
        if (digits.size() <= m_decimals)
            digits = digits.rightJustified(m_decimals + 1, QLatin1Char('0'));
        digits.insert(digits.size() - m_decimals, QLatin1Char('.'));
    }
    return digits;
}

int TunerPlayer::freqNormalize(int freq, int low, int high, int step)
{
    if (freq == 0)
        return 0;
    if (freq < low || freq > high)
        return -1;
    if (step <= 0) {
        TUNER_WAR() << freq << low << high << step << "step is not positive, frequency not snapped.";
        return freq;
    }
    return low + ((freq - low) / step) * step;
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
    unlight(group(prefs()->band()));
    prefs()->setCurrPlayFreqId(kNoPreset);
    prefs()->setPresetIndex(0);
}

void TunerPlayer::manualPlus()
{
    unlightPlayingPreset();
    int next = m_value + m_step;
    if (next > m_maximum)
        next = m_minimum;
    setValue(next);
}

void TunerPlayer::manualMinus()
{
    unlightPlayingPreset();
    int next = m_value - m_step;
    if (next < m_minimum)
        next = m_maximum;
    setValue(next);
}

// Every station report passes here: setting the image the indicator already
// shows would still repaint it and all beneath, and loading it by name costs a
// file-time lookup each time.
void TunerPlayer::showPageImage(int band)
{
    if (band == m_pageImageBand)
        return;
    m_pageImageBand = band;
    ui->Icn_0067_page->setPixmap(QPixmap(QLatin1String(kPageImages[band])));
}

void TunerPlayer::updateBandInfo()
{
    Preferences *p = prefs();
    if (p->isFM()) {
        ui->Txt_0017_band_name->setText(Translator::translate(39));
        ui->scrollArea_tuner_am->hide();
        ui->scrollArea_tuner->show();
        if (QLabel *unit = unitLabel())
            unit->setText(Translator::translate(40));
    } else {
        ui->Txt_0017_band_name->setText(Translator::translate(49));
        ui->scrollArea_tuner->hide();
        ui->scrollArea_tuner_am->show();
        ui->Icn_0015_rds->hide();
        ui->Icn_0016_tp->hide();
        ui->Txt_0019_rds_freq->show();
        ui->Txt_0020_rds_unit->show();
        ui->Txt_0018_rds_name->hide();
        if (QLabel *unit = unitLabel())
            unit->setText(Translator::translate(50));
    }
    updateLabelFreq();
    setValue(p->playFreq());
    const int band = p->band();
    if (band >= 0 && band < 5)
        showPageImage(band);
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

QButtonGroup *TunerPlayer::group(int band) const
{
    if (band < 0 || band >= m_groups.size()) {
        TUNER_WAR() << band << "has no preset page.";
        return nullptr;
    }
    return m_groups.at(band);
}

QLabel *TunerPlayer::presetLabel(int band, int id) const
{
    if (band < 0 || band >= m_labels.size() || !validPreset(id))
        return nullptr;
    return m_labels.at(band).at(id);
}

void TunerPlayer::setLabelValue(const int *values, int count)
{
    const int firstRow = prefs()->isFM() ? 0 : 3;
    for (int i = 0; i < count; ++i) {
        QLabel *label = presetLabel(firstRow + i / kPresetCount, i % kPresetCount);
        if (!label || (firstRow == 3 && i >= 12))
            break;
        label->setText(normalValue(values[i]));
        label->setAlignment(Qt::AlignHCenter | Qt::AlignVCenter);
    }
}

void TunerPlayer::updateRdsName()
{
    if (!prefs()->isFM())
        return;
    for (int band = BAND_FM1; band <= BAND_FM3; ++band) {
        for (int id = 0; id < kPresetCount; ++id) {
            const QString name = prefs()->rdsName(Band(band), id);
            if (name.isEmpty())
                continue;
            QLabel *label = presetLabel(band, id);
            label->setText(Preferences::delControlChar(name));
            label->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
        }
    }
}

// An exclusive group cannot uncheck its last button: go through a
// non-exclusive group.
void TunerPlayer::unlight(QButtonGroup *presets)
{
    if (!presets)
        return;
    presets->setExclusive(false);
    if (QAbstractButton *checked = presets->checkedButton())
        checked->setChecked(false);
    presets->setExclusive(true);
}

void TunerPlayer::lightButton(int band, int id)
{
    QButtonGroup *presets = group(band);
    if (!presets)
        return;
    presets->setExclusive(true);
    if (QAbstractButton *button = validPreset(id) ? presets->button(id) : nullptr)
        button->setChecked(true);
}

void TunerPlayer::checkedId(int id)
{
    const int band = prefs()->band();
    QButtonGroup *presets = group(band);
    if (presets && validPreset(presets->checkedId()))
        unlight(presets);
    lightButton(band, id);
    prefs()->setCurrPlayFreqId(id);
}

void TunerPlayer::highPreset()
{
    const int band = prefs()->band();
    if (cm::ScrollManage *pages = scroller(prefs()->isFM()))
        pages->scrollToPage(prefs()->isFM() ? band : band - BAND_AM1, true);
    if (validPreset(prefs()->playFreqId()))
        lightButton(band, prefs()->playFreqId());
}

void TunerPlayer::clearCurFreqId()
{
    prefs()->clearFreqId(prefs()->band(), kNoPreset);
    unlight(group(prefs()->band()));
}

void TunerPlayer::clearFreqId()
{
    const int first = prefs()->isFM() ? BAND_FM1 : BAND_AM1;
    const int last = prefs()->isFM() ? BAND_FM3 : BAND_AM2;
    for (int band = first; band <= last; ++band) {
        prefs()->clearFreqId(Band(band), kNoPreset);
        unlight(group(band));
    }
}

cm::ScrollManage *TunerPlayer::scroller(bool fm)
{
    cm::ScrollManage *&pages = fm ? m_fmScroller : m_amScroller;
    if (!pages) {
        pages = new cm::ScrollManage(fm ? ui->scrollArea_tuner : ui->scrollArea_tuner_am, this);
        if (fm)
            connect(pages, SIGNAL(pageChanged(int)), this, SLOT(onUpdateNavigationIcon_FM(int)));
        else
            connect(pages, SIGNAL(pageChanged(int)), this, SLOT(onUpdateNavigationIcon_AM(int)));
        connect(pages, SIGNAL(stateChanged(QScroller::State)), this, SLOT(onScrollerState(QScroller::State)));
    }
    return pages;
}

void TunerPlayer::scrollToPage(int band)
{
    if (!Preferences::isValidBand(band)) {
        TUNER_WAR() << band << "is not a band, page not changed.";
        return;
    }
    prefs()->setBand(Band(band));
    const bool fm = Preferences::isFmBand(band);
    scroller(fm)->scrollToPage(fm ? band : band - BAND_AM1, true);
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

void TunerPlayer::onButGroupPressed(int id)
{
    m_presetSaved = false;
    if (m_workStatus != 0) {
        m_radio->terminate();
        m_radio->tune(prefs()->playFreq());
    }
    m_presetHoldTimer.start(kPresetHoldMs, this);
    m_pressedPreset = id;
}

void TunerPlayer::onButGroupReleased(int)
{
    if (m_presetHoldTimer.isActive())
        m_presetHoldTimer.stop();
}

// A swipe across the presets never stores one.
void TunerPlayer::onScrollerState(QScroller::State state)
{
    if (state == QScroller::Dragging || state == QScroller::Scrolling)
        m_presetHoldTimer.stop();
}

void TunerPlayer::onButGroupClicked(int id)
{
    if (m_presetSaved)
        return; // the hold already stored it
    Preferences *p = prefs();
    beep(0);
    p->setNumberKeyInter(false);
    if (p->PTYSeachState() == 3 || m_workStatus == 4 || m_workStatus == 5) {
        m_radio->terminate();
        checkedId(id);
        return;
    }
    if (m_workStatus == 1) {
        // Lit when the automatic store ends.
        m_radio->setPreset(id);
        p->setPresetIndex(id);
        p->setNumberKeyInter(true);
        p->setTaStatus(false);
        p->setAlarmStatus(false);
        return;
    }
    p->setTaStatus(false);
    p->setAlarmStatus(false);
    p->setPresetIndex(id);
    m_radio->setPreset(id);
    if (p->isFM()) {
        setPresetTaAf(id);
        if (id != m_lastClickedPreset) {
            m_lastClickedPreset = id;
            checkedId(id);
        }
    }
    if (m_workStatus != 2 && m_workStatus != 3) {
        const int mode = displayLine();
        if (mode == 1) {
            ui->stackedWidget_tuner->setCurrentWidget(ui->page_tuner_01);
            ui->Icn_0020_rds->hide();
            ui->Icn_0021_tp->hide();
            ui->Txt_0035_rds_freq->setText(normalValue(p->favoritAt(id)));
        } else if (mode == 0) {
            ui->stackedWidget_tuner->setCurrentWidget(ui->page_tuner_02);
            ui->Icn_0015_rds->hide();
            ui->Icn_0016_tp->hide();
            ui->Txt_0019_rds_freq->setText(normalValue(p->favoritAt(id)));
        }
    }
    checkedId(id);
}

void TunerPlayer::onUpdateNavigationIcon_FM(int page)
{
    if (!Preferences::isFmBand(page)) {
        TUNER_WAR() << page << "is not an FM page.";
        return;
    }
    Preferences *p = prefs();
    if (m_initialised && m_workStatus == 0 && !m_seeking)
        clearRdsState();
    m_radio->setband(page);
    p->setBand_FM(Band(page));
    p->setBand(Band(page));
    showPageImage(page);
    lightButton(page, p->playFreqId());
    setRange(p->lowFreq(), p->highFreq());
    setStep(p->stepFreq());
    if (m_bandSwitched) {
        setValue(p->playFreq());
        m_bandSwitched = false;
    }
}

// Callers pass either a page (0, 1) or a band (3, 4).
void TunerPlayer::onUpdateNavigationIcon_AM(int page)
{
    int band = -1;
    if (page == 0 || page == 3)
        band = BAND_AM1;
    else if (page == 1 || page == 4)
        band = BAND_AM2;
    if (band < 0) {
        TUNER_WAR() << page << "is not an AM page.";
        return;
    }
    Preferences *p = prefs();
    showPageImage(band);
    p->setBand_AM(Band(band));
    p->setBand(Band(band));
    m_radio->setband(band);
    lightButton(band, p->playFreqId());
    setRange(p->lowFreq(), p->highFreq());
    setStep(p->stepFreq());
    if (m_bandSwitched) {
        setValue(p->playFreq());
        m_bandSwitched = false;
    }
}

void TunerPlayer::onAutoScan()
{
    clearRdsState();
    if (m_workStatus >= 1 && m_workStatus <= 5) {
        m_radio->terminate();
        m_radio->tune(prefs()->playFreq());
        return;
    }
    Preferences *p = prefs();
    QButtonGroup *presets = group(p->band());
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
    QButtonGroup *presets = group(band);
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
    lightButton(p->band(), id);
    if (validPreset(id))
        p->setCurrPlayFreqId(id);
}

void TunerPlayer::initband()
{
    Preferences *p = prefs();
    ui->scrollArea_tuner->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    ui->scrollArea_tuner_am->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    if (p->isFM()) {
        ui->Txt_0017_band_name->setText(Translator::translate(39));
        ui->scrollArea_tuner->show();
        ui->scrollArea_tuner_am->hide();
        onUpdateNavigationIcon_FM(p->band_FM());
        scroller(true)->scrollToPage(p->band_FM(), false);
    } else {
        ui->Txt_0017_band_name->setText(Translator::translate(49));
        ui->scrollArea_tuner_am->show();
        ui->scrollArea_tuner->hide();
        onUpdateNavigationIcon_AM(p->band_AM());
        scroller(false)->scrollToPage(p->band_AM() - BAND_AM1, false);
    }
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

QWidget *TunerPlayer::manualKey(bool plus) const
{
    return plus ? static_cast<QWidget *>(ui->Key_0028_manual_plus) : ui->Key_0027_manual_minus;
}

void TunerPlayer::manualClicked(bool plus)
{
    if (m_workStatus == 1)
        return;
    beep(0);
    clearRdsState();
    if (m_workStatus == 2 || m_workStatus == 3) {
        m_radio->terminate();
        m_radio->tune(prefs()->playFreq());
        return;
    }
    m_manualStepping = true;
    plus ? manualPlus() : manualMinus();
    m_radio->tune(m_value);
    m_tuneRequested = true;
    // Until the service confirms the frequency, or the fallback gives up on it.
    manualKey(plus)->setAttribute(Qt::WA_TransparentForMouseEvents);
    m_manualKeyRelease.start(kManualKeyReleaseMs, this);
}

void TunerPlayer::manualPressed(bool plus)
{
    if (m_workStatus == 1)
        return;
    beep(1);
    clearRdsState();
    if (m_workStatus == 2 || m_workStatus == 3 || (!plus && m_workStatus == 1))
        m_radio->terminate();
    m_radio->keyLongPress(1);
    QBasicTimer &repeat = plus ? m_manualPlusTimer : m_manualMinusTimer;
    if (!repeat.isActive())
        repeat.start(kManualRepeatMs, this);
}

// During the repeat the display runs ahead; only the final value is tuned.
void TunerPlayer::manualReleased(bool plus)
{
    QBasicTimer &repeat = plus ? m_manualPlusTimer : m_manualMinusTimer;
    if (repeat.isActive()) {
        repeat.stop();
        m_radio->keyLongPress(0);
    }
    m_radio->tune(m_value);
}

void TunerPlayer::onManualPlusClicked()
{
    manualClicked(true);
}

void TunerPlayer::onManualPlusPressed()
{
    manualPressed(true);
}

void TunerPlayer::onManualPlusReleased()
{
    manualReleased(true);
}

void TunerPlayer::onManualMinusClicked()
{
    manualClicked(false);
}

void TunerPlayer::onManualMinusPressed()
{
    manualPressed(false);
}

void TunerPlayer::onManualMinusReleased()
{
    manualReleased(false);
}

void TunerPlayer::seek(bool up)
{
    beep(0);
    if (m_workStatus == 1)
        return;
    clearRdsState();
    if (m_workStatus >= 2 && m_workStatus <= 5) {
        m_radio->terminate();
        m_radio->tune(prefs()->playFreq());
        return;
    }
    clearCurFreqId();
    prefs()->setPresetIndex(0);
    up ? m_radio->seekForward() : m_radio->seekBackward();
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
    if (m_workStatus == 1) {
        m_radio->terminate();
        return true;
    }
    if (m_workStatus == 2 || m_workStatus == 3 || prefs()->PTYSeachState() == 3 || m_workStatus == 4
        || m_workStatus == 5) {
        m_radio->terminate();
        m_radio->tune(prefs()->playFreq());
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
    if (press.x() < 0 || press.y() < 0 || press.y() >= kSwipeAreaBottom)
        return;
    const int dx = event->pos().x() - press.x();
    const int dy = event->pos().y() - press.y();
    const double angle = qAtan2(dy, dx) * 180 / 3.1415926;
    if (angle >= -45 && angle <= 45) {
        if (qAbs(dx) >= kSwipeDistance)
            onSeekPlus();
    } else if (angle >= -135 && angle <= -45) {
        if (qAbs(dy) >= kSwipeDistance) {
            McuManager::instance()->triggerBeep(0);
            IrUpSelectFreqId();
        }
    } else if (angle >= 45 && angle <= 135) {
        if (qAbs(dy) >= kSwipeDistance) {
            McuManager::instance()->triggerBeep(0);
            IrDownSelectFreqId();
        }
    } else if (qAbs(dx) >= kSwipeDistance) {
        onSeekMinus();
    }
}

void TunerPlayer::on_Key_0020_switch_band_released()
{
    if (!isVisible() && !m_bandKeyFromRemote)
        return;
    if (m_interruptState == 3 || m_interruptState == 5)
        return;
    if (!m_bandKeyFromRemote)
        beep(0);
    if (onTerminate())
        return; // the key only ends the search

    Preferences *p = prefs();
    m_bandSwitched = true;
    if (p->isFM()) {
        ui->Txt_0017_band_name->setText(Translator::translate(49));
        ui->scrollArea_tuner->hide();
        ui->scrollArea_tuner_am->show();
        clearRdsState();
        if (afTaTpSupported()) {
            m_radio->setAf(false);
            m_radio->setTa(false);
        }
        cm::ScrollManage *pages = scroller(false);
        pages->scrollToPage(m_bandKeyFromRemote ? 0 : p->band_AM() - BAND_AM1, true);
        if (QLabel *unit = unitLabel())
            unit->setText(Translator::translate(50));
    } else {
        ui->Txt_0017_band_name->setText(Translator::translate(39));
        ui->scrollArea_tuner_am->hide();
        ui->scrollArea_tuner->show();
        onstatusChanged(p->rdsState());
        if (afTaTpSupported()) {
            m_radio->setAf(p->af());
            m_radio->setTa(p->ta());
        }
        cm::ScrollManage *pages = scroller(true);
        pages->scrollToPage(m_bandKeyFromRemote ? 0 : p->band_FM(), true);
        if (QLabel *unit = unitLabel())
            unit->setText(Translator::translate(40));
    }

    updateLabelFreq();
    lightButton(p->band(), p->playFreqId());
    m_lastFreq = p->playFreq();
    m_seeking = false;
    onWorkStatus(0);
    emit showOptionItem();
    m_bandKeyFromRemote = false;

    // Not again until the service reports the switch done, or three seconds pass.
    ui->Key_0020_switch_band->setAttribute(Qt::WA_TransparentForMouseEvents);
    m_bandKeyLock.start(kBandKeyLockMs, this);
}

void TunerPlayer::onBandChangState(int state)
{
    if (state != 1)
        return;
    m_bandKeyLock.stop();
    ui->Key_0020_switch_band->setAttribute(Qt::WA_TransparentForMouseEvents, false);
}

// --- reports from the radio service -------------------------------------------------

void TunerPlayer::onFrequencyChanged(int freq, int band)
{
    Preferences *p = prefs();
    if (band < 0)
        band = p->band();
    if (m_manualPlusTimer.isActive() || m_manualMinusTimer.isActive())
        return; // the display belongs to the key being held

    int f = freqNormalize(freq, p->lowFreq(), p->highFreq(), p->stepFreq());
    if (f <= 0)
        TUNER_WAR() << freq << "is invaild freq.";
    if (band != p->band())
        TUNER_WAR() << band << "is not match current band.";

    const bool inFm = freq >= p->fmMinFreq() && freq <= p->fmMaxFreq();
    const bool inAm = freq >= p->amMinFreq() && freq <= p->amMaxFreq();
    if (f <= 0 || band != p->band()) {
        p->setBand(Band(band));
        if (inFm) {
            if (!Preferences::isFmBand(band)) {
                band = BAND_FM1;
                p->setBand(BAND_FM1);
            }
            p->setPlayFreq(p->band_FM(), freq);
        } else if (inAm) {
            if (band != BAND_AM1 && band != BAND_AM2) {
                band = BAND_AM1;
                p->setBand(BAND_AM1);
            }
            p->setPlayFreq(p->band_AM(), freq);
        } else {
            p->setPlayFreq(Band(band), Preferences::isFmBand(band) ? p->fmMinFreq() : p->amMinFreq());
        }
        f = freqNormalize(freq, p->lowFreq(), p->highFreq(), p->stepFreq());
    } else {
        p->setPlayFreq(Band(band), f);
    }

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
    if (!m_manualStepping) {
        m_seeking = false;
        setValue(f);
    }
    p->setCurrPlayFreq(f);
    const int id = p->playFreqId();
    if (validPreset(id) && p->favoritAt(id) == f)
        onRdsName(p->rdsName(Band(band), id));
    if (m_manualStepping)
        releaseManualKeys();
    showRdsUnit();
}

void TunerPlayer::releaseManualKeys()
{
    m_manualKeyRelease.stop();
    manualKey(true)->setAttribute(Qt::WA_TransparentForMouseEvents, false);
    manualKey(false)->setAttribute(Qt::WA_TransparentForMouseEvents, false);
    m_manualStepping = false;
}

// The end of a search is shown a moment late, so that the final station report comes first.
void TunerPlayer::onSeekState(int state)
{
    if (state == 0) {
        m_workStatus = 0;
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

void TunerPlayer::startStatusAnimation(int interval, int textId)
{
    ui->stackedWidget_tuner->setCurrentWidget(ui->page_tuner_04);
    if (!m_statusTimer.isActive())
        m_statusTimer.start(interval, this);
    ui->Txt_0022_status->setText(Translator::translate(textId));
}

void TunerPlayer::onWorkStatus(int state)
{
    m_workStatus = state;
    const bool local = prefs()->isLocal();
    if (state == 1)
        startStatusAnimation(500, 45);
    else if (state == 2)
        startStatusAnimation(400, local ? 43 : 41);
    else if (state == 3)
        startStatusAnimation(400, local ? 44 : 42);
    if (state == 0) {
        m_statusTimer.stop();
        setValue(m_lastFreq);
        showRdsUnit();
    }
    if (afTaTpSupported() && prefs()->isFM() && (state == 4 || state == 5)) {
        startStatusAnimation(500, state == 4 ? 48 : 47);
        prefs()->setPresetIndex(0);
        clearCurFreqId();
    }
}

void TunerPlayer::onSerchTimer() {}

// --- RDS ---------------------------------------------------------------------------

void TunerPlayer::showRdsUnit()
{
    if (QLabel *unit = unitLabel())
        unit->setText(Translator::translate(prefs()->isFM() ? 40 : 50));
}

void TunerPlayer::onRdsName(QString name)
{
    Preferences *p = prefs();
    const bool none = name.isEmpty() || name == QLatin1String("NULL");
    if (!none)
        name = Preferences::delControlChar(name);
    const QString shown = name == QLatin1String("NULL") ? QString() : name;
    const int mode = displayLine();
    if (mode == 0) {
        ui->stackedWidget_tuner->setCurrentWidget(ui->page_tuner_02);
        const bool showName = p->isFM() && !none;
        ui->Txt_0019_rds_freq->setVisible(!showName);
        ui->Txt_0020_rds_unit->setVisible(!showName);
        ui->Txt_0018_rds_name->setVisible(showName);
        ui->Txt_0018_rds_name->setText(shown);
    } else if (mode == 1) {
        ui->stackedWidget_tuner->setCurrentWidget(ui->page_tuner_01);
        ScrollLabel *label = ui->Txt_0037_rds_name;
        label->setVisible(p->isFM());
        label->setText(shown);
        label->updateCoordinates();
        // A name longer than the label runs as a marquee.
        if (label->fontMetrics().horizontalAdvance(shown) > label->width())
            label->onStart();
        else
            label->onStop();
    }

    const int id = p->playFreqId();
    if (!p->isFM() || !validPreset(id) || name.isEmpty())
        return;
    QLabel *preset = presetLabel(p->band(), id);
    if (name == QLatin1String("NULL")) {
        preset->setAlignment(Qt::AlignHCenter | Qt::AlignVCenter);
        preset->setText(normalValue(p->playFreq()));
        p->saveRdsName(p->band(), id, QString());
    } else {
        preset->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
        preset->setText(name);
        p->saveRdsName(p->band(), id, name);
    }
}

void TunerPlayer::onstatusChanged(int state)
{
    QLabel *rds = rdsIcon();
    QLabel *tp = tpIcon();
    QLabel *name = nameLabel();
    if (!prefs()->isFM()) {
        for (QLabel *label : {rds, tp, name})
            if (label)
                label->hide();
        return;
    }
    if (state == 1) {
        if (rds)
            rds->show();
        if (tp)
            tp->hide();
    } else if (state == 3 || state == 5 || state == 7) {
        if (rds)
            rds->show();
        if (tp)
            tp->show();
    } else {
        prefs()->setCurRdsName(QString());
        for (QLabel *label : {rds, tp, name})
            if (label)
                label->hide();
        if (QLabel *freq = freqLabel()) {
            freq->show();
            freq->setText(normalValue(m_lastFreq));
        }
        if (displayLine() == 0)
            ui->Txt_0020_rds_unit->show();
    }
}

void TunerPlayer::onPtyChanged(int pty, QString)
{
    if (pty == 31)
        return;
    emit PTYCurrentType(pty);
    prefs()->setPtyItem(pty);
}

c35_011_interrupt_on_tuner *TunerPlayer::interruptPopup() const
{
    return m_popup;
}

void TunerPlayer::raiseInterrupt(int state, int type)
{
    ui->stackedWidget_tuner->setCurrentWidget(ui->page_tuner_02);
    ui->Icn_0015_rds->show();
    ui->Icn_0016_tp->show();
    if (!isVisible())
        emit taShowTunerPlayer();
    if (!m_popup) {
        m_popup = new c35_011_interrupt_on_tuner(this);
        m_popup->setGeometry(rect());
        connect(m_popup, SIGNAL(cancel()), this, SLOT(onInterruptCancel()));
    }
    m_interruptState = state;
    m_popup->onInterruptType(InterruptType(type));
    m_popup->show();
    m_popup->raise();
    m_popup->repaint();
}

// 3 traffic announcement begins, 4 ends, 5 alarm begins, 6 ends.
void TunerPlayer::onPiTpStatus(int pitpState)
{
    Preferences *p = prefs();
    if (!afTaTpSupported() || !p->isFM())
        return;
    const bool alarmLive = p->alarmStatue() && !p->cancelAlarm();
    switch (pitpState) {
    case 3:
        if (!alarmLive) // the alarm has priority
            raiseInterrupt(3, INTERRUPT_TA);
        break;
    case 4:
        if (!alarmLive && p->taStatus())
            AlarmTaStatusEnd();
        break;
    case 5:
        raiseInterrupt(5, INTERRUPT_ALARM);
        break;
    case 6:
        if (p->alarmStatue())
            AlarmTaStatusEnd();
        // An announcement the alarm interrupted comes back.
        if ((p->taStatus() && !p->cancelTa()) || p->SouOffTa())
            onPiTpStatus(3);
        break;
    default:
        break;
    }
}

// The user dismissed the popup.
void TunerPlayer::onInterruptCancel()
{
    Preferences *p = prefs();
    if (m_popup)
        m_popup->deleteLater(); // we are inside its cancel() signal
    m_popup = nullptr;
    m_interruptState = 0;
    McuManager::instance()->updateAudioStatus(McuManager::AudioStatusInterruptEnd);
    if (p->taOrAlarm() == INTERRUPT_TA) {
        m_radio->taAlarmCancel(1);
        emit alarmCancel();
        p->setCancelTa(true);
    } else if (p->taOrAlarm() == INTERRUPT_ALARM) {
        if (!p->taStatus() || p->cancelTa()) {
            emit alarmCancel();
            p->setCancelAlarm(true);
        } else {
            p->setCancelAlarm(true);
            emit cancelTaAlarm();
        }
    }
}

void TunerPlayer::AlarmTaStatusEnd()
{
    if (!m_popup)
        return;
    McuManager::instance()->updateAudioStatus(McuManager::AudioStatusInterruptEnd);
    if (prefs()->taOrAlarm() == INTERRUPT_TA)
        m_radio->taAlarmCancel(1);
    m_interruptState = 0;
    m_popup->deleteLater();
    m_popup = nullptr;
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
    if (m_workStatus == 1) {
        m_radio->terminate();
    } else if (m_workStatus == 2 || m_workStatus == 3) {
        m_radio->terminate();
        m_radio->tune(prefs()->playFreq());
    }
}

void TunerPlayer::onSetPty(int value)
{
    clearRdsState();
    if (m_workStatus == 1) {
        m_radio->terminate();
    } else if (m_workStatus == 2 || m_workStatus == 3) {
        m_radio->terminate();
        m_radio->tune(prefs()->playFreq());
    }
    clearCurFreqId();
    prefs()->setPresetIndex(0);
    m_radio->ptySearch(value);
}

// --- remote and steering keys ------------------------------------------------------

// A running search is only stopped, never stepped over.
bool TunerPlayer::stopRunningSearch()
{
    if (m_workStatus == 1 || m_workStatus == 4 || m_workStatus == 5) {
        m_radio->terminate();
        return true;
    }
    if (m_workStatus == 2 || m_workStatus == 3) {
        m_radio->terminate();
        m_radio->tune(prefs()->playFreq());
        return true;
    }
    return false;
}

void TunerPlayer::stepToBand(int band)
{
    m_radio->setband(band);
    const bool fm = Preferences::isFmBand(band);
    scroller(fm)->scrollToPage(fm ? band : band - BAND_AM1, true);
    prefs()->setBand(Band(band));
}

void TunerPlayer::selectStepPreset(int next)
{
    Preferences *p = prefs();
    p->setPresetIndex(next);
    p->setCurrPlayFreqId(next);
    lightButton(p->band(), next);
    m_radio->setPreset(next);
    if (p->isFM())
        setPresetTaAf(next);
    clearRdsState();
    p->setTaStatus(false);
    p->setAlarmStatus(false);
}

void TunerPlayer::IrUpSelectFreqId()
{
    if (stopRunningSearch())
        return;
    Preferences *p = prefs();
    int next = p->playFreqId() + 1;
    if (!validPreset(next)) {
        next = 0;
        QButtonGroup *presets = group(p->band());
        if (presets && presets->checkedId() == 5) {
            const int band = p->band();
            stepToBand(p->isFM() ? (band == BAND_FM3 ? BAND_FM1 : band + 1) : (band == BAND_AM2 ? BAND_AM1 : band + 1));
        }
    }
    selectStepPreset(next);
}

// Unlike stepping up, the band change here follows the stored preset id.
void TunerPlayer::IrDownSelectFreqId()
{
    if (stopRunningSearch())
        return;
    Preferences *p = prefs();
    const int id = p->playFreqId();
    int next = 0;
    if (id >= 1 && id <= 5) {
        next = id - 1;
    } else if (id == 0) {
        const int band = p->band();
        stepToBand(p->isFM() ? (band == BAND_FM1 ? BAND_FM3 : band - 1) : (band == BAND_AM1 ? BAND_AM2 : band - 1));
        next = 5;
    }
    selectStepPreset(next);
}

void TunerPlayer::IrBandChanged()
{
    Preferences *p = prefs();
    m_bandKeyFromRemote = true;
    const int next = p->band() + 1;
    if (next >= 5) {
        p->setBand(BAND_AM2);
        p->setBand_AM(BAND_AM2);
        on_Key_0020_switch_band_released();
    } else if (next == BAND_AM1) {
        on_Key_0020_switch_band_released();
    } else if (p->isFM()) {
        p->setBand(Band(next));
        scroller(true)->scrollToPage(next, true);
    } else {
        scroller(false)->scrollToPage(next - BAND_AM1, true);
        p->setBand(Band(next));
    }
}

void TunerPlayer::storePresetFromKey(int id)
{
    Preferences *p = prefs();
    beep(1);
    m_radio->savePreset(id);
    saveFavorite(id, m_lastFreq);
    if (QLabel *label = presetLabel(p->band(), id))
        label->setText(normalValue(m_lastFreq));
    checkedId(id);
    if (p->isFM()) {
        p->setFmAf(id, p->af());
        p->setFmTa(id, p->ta());
        onRdsName(p->curRdsName());
    }
}

void TunerPlayer::irSeek(bool up)
{
    clearRdsState();
    if (m_workStatus >= 2 && m_workStatus <= 5) {
        m_radio->terminate();
        m_radio->tune(prefs()->playFreq());
        return;
    }
    clearCurFreqId();
    prefs()->setPresetIndex(0);
    up ? m_radio->seekForward() : m_radio->seekBackward();
}

bool TunerPlayer::onIrKeyEvent(int key, int state)
{
    const bool shown = isVisible() || g_TunerCurDSPL == 2;
    const bool popup = m_interruptState == 3 || m_interruptState == 5;
    const bool store = m_workStatus == 1;

    if (key == 33 || key == 122) {
        const bool bandGate = (shown && !popup) || g_TunerCurDSPL == 4 || (g_TunerCurDSPL == 5 && !popup);
        if (!bandGate)
            return false;
        if (state == 1002) {
            beep(0);
            return true;
        }
        if (state != 1003)
            return false;
        if (prefs()->PTYSeachState() == 3) {
            m_radio->terminate();
        } else if (m_workStatus >= 1 && m_workStatus <= 3) {
            m_radio->terminate();
            m_radio->tune(prefs()->playFreq());
            IrBandChanged();
        } else {
            IrBandChanged();
        }
        return true;
    }

    if (!shown || popup)
        return false;

    switch (key) {
    case 7: case 51: case 117: case 161:
    case 8: case 52: case 118: case 162: {
        if (store)
            return false;
        const bool up = key == 7 || key == 51 || key == 117 || key == 161;
        if (state == 1002) {
            beep(0);
            return true;
        }
        if (state == 1003) {
            up ? IrUpSelectFreqId() : IrDownSelectFreqId();
            return true;
        }
        if (state == 1004) {
            beep(1);
            prefs()->setPresetIndex(0);
            if (m_workStatus == 2 || m_workStatus == 3) {
                m_radio->terminate();
            } else {
                clearCurFreqId();
                up ? m_radio->seekForward() : m_radio->seekBackward();
            }
            return true;
        }
        return false;
    }
    case 34: case 35: case 36: case 37: case 38: case 39: {
        const int id = key - 34;
        if (state == 1002)
            return true;
        if (state == 1003) {
            m_presetSaved = false;
            onButGroupClicked(id);
            return true;
        }
        if (state == 1004) {
            if (store)
                return false;
            storePresetFromKey(id);
            return true;
        }
        return false;
    }
    case 44: case 121: case 45: case 116: {
        if (store)
            return false;
        const bool up = key == 44 || key == 121;
        if (state == 1002) {
            beep(0);
            up ? IrUpSelectFreqId() : IrDownSelectFreqId();
        } else if (state == 1004) {
            up ? IrUpSelectFreqId() : IrDownSelectFreqId();
        }
        return state >= 1002 && state <= 1005;
    }
    case 46: case 47: {
        if (store)
            return false;
        const bool plus = key == 47;
        switch (state) {
        case 1002:
            beep(0);
            return true;
        case 1003:
            irSeek(plus);
            return true;
        case 1004:
            plus ? onManualPlusPressed() : onManualMinusPressed();
            return true;
        case 1005:
            plus ? onManualPlusReleased() : onManualMinusReleased();
            return true;
        default:
            return false;
        }
    }
    case 125:
        if (m_workStatus < 1 || m_workStatus > 3)
            return false;
        if (state == 1002) {
            beep(0);
            return true;
        }
        if (state == 1003) {
            m_radio->terminate();
            return true;
        }
        return false;
    default:
        return false;
    }
}

// --- timers ------------------------------------------------------------------------

void TunerPlayer::timerEvent(QTimerEvent *event)
{
    const int id = event->timerId();
    Preferences *p = prefs();
    if (id == m_presetHoldTimer.timerId()) {
        m_presetHoldTimer.stop();
        const int preset = m_pressedPreset;
        const int freq = m_lastFreq;
        if (m_workStatus != 0) {
            m_radio->terminate();
            m_radio->tune(p->playFreq());
        }
        m_presetSaved = true;
        beep(1);
        m_radio->savePreset(preset);
        saveFavorite(preset, freq);
        if (QLabel *label = presetLabel(p->band(), preset)) {
            label->setAlignment(Qt::AlignHCenter | Qt::AlignVCenter);
            label->setText(normalValue(freq));
        }
        if (p->isFM()) {
            p->setFmAf(preset, p->af());
            p->setFmTa(preset, p->ta());
            p->setSavePreset(preset, p->curRdsName().isEmpty());
        }
        checkedId(preset);
        p->setPresetIndex(preset);
        p->saveRdsName(p->band(), preset, QString());
        if (p->isFM() && !p->curRdsName().isEmpty())
            onRdsName(p->curRdsName());
        onButGroupReleased(preset);
    } else if (id == m_manualPlusTimer.timerId() || id == m_manualMinusTimer.timerId()) {
        const bool plus = id == m_manualPlusTimer.timerId();
        if (!isVisible())
            manualReleased(plus);
        else
            plus ? manualPlus() : manualMinus();
    } else if (id == m_statusTimer.timerId()) {
        if (++m_dotsShown > m_dots.size())
            m_dotsShown = 1;
        ui->Txt_0384_status2->setText(m_dots.right(m_dotsShown));
    } else if (id == m_manualKeyRelease.timerId()) {
        TUNER_WAR() << "the manual step was not confirmed within" << kManualKeyReleaseMs << "ms; its key is released.";
        releaseManualKeys();
    } else if (id == m_bandKeyLock.timerId()) {
        m_bandKeyLock.stop();
        ui->Key_0020_switch_band->setAttribute(Qt::WA_TransparentForMouseEvents, false);
    } else {
        QWidget::timerEvent(event);
    }
}

} // namespace tuner

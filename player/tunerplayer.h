#pragma once

#include "autostore.h"
#include "bandswitch.h"
#include "displayline.h"
#include "interruptbanner.h"
#include "interrupts.h"
#include "manualkeys.h"
#include "presetlabels.h"
#include "presetpages.h"
#include "presettouch.h"
#include "radiocontrol.h"
#include "rdsstation.h"
#include "rdsswitches.h"
#include "remotekeys.h"
#include "searchstatus.h"
#include "tunedfrequency.h"

#include <QPoint>
#include <QScroller>
#include <QWidget>

class QTimer;

namespace Ui {
class c20_003_tuner;
}

namespace tuner {

class c35_011_interrupt_on_tuner;
class RadioEdge;
class ShownStation;

// The tuner's main screen, and the face its window and the form's signals
// see. The work is its collaborators':
// - RadioControl: the radio commands and what the screen remembers of them;
// - TunedFrequency, DisplayLine, RdsStation, SearchStatus: what the display line shows;
// - PresetPages, PresetLabels, PresetTouch: the preset pages, what they show, touches on them;
// - ManualKeys, BandSwitch, RemoteKeys: the step keys, the bands, the remote's keys;
// - AutoStore: the automatic store;
// - InterruptBanner: the traffic-announcement and alarm popup.
// Several public members are the interface the head unit's code calls by
// name; where nothing here calls them, they stay for it.
class TunerPlayer : public QWidget
{
    Q_OBJECT

public:
    // The radio's reports come through `radioEdge` (the main window's); without
    // one the screen sets up its own around its proxy. The display line writes
    // the station it shows to `shown`, or to one of its own.
    explicit TunerPlayer(QWidget *parent = nullptr, RadioEdge *radioEdge = nullptr, ShownStation *shown = nullptr);
    ~TunerPlayer() override;

    // Frequency model.
    void setStep(int step);
    void recalc(); // interface for the host's code: nothing here calls it
    void setRange(int low, int high) { m_frequency.setRange(low, high); }
    void setValue(int value);
    QString normalValue(int value) const { return m_frequency.text(value); }
    int freqValue() const { return m_frequency.value(); }
    static int freqNormalize(int freq, int low, int high, int step)
    {
        return FrequencyDial::normalize(freq, low, high, step);
    }
    bool isValidFreq(); // interface for the host's code: nothing here calls it
    void manualPlus() { m_manual.step(true); }
    void manualMinus() { m_manual.step(false); }
    void updateBandInfo();
    // Texts fetched again after the host switched languages.
    void retranslate();
    void updateLabelFreq() { m_labels.relabel(); }

    // Presets and pages.
    void setLabelValue(const int *values, int count) { m_labels.showValues(values, count); }
    void updateRdsName() { m_labels.showNames(); }
    void checkedId(int id) { m_labels.light(id); }
    void highPreset() { m_labels.lightPlaying(); }
    void clearCurFreqId() { m_labels.unlightBand(); }
    void clearFreqId() { m_labels.unlightFamily(); }
    void scrollToPage(int band);
    void saveFavorite(int id, int freq);
    void setPresetTaAf(int id) { applyPresetTaAf(m_control.radio(), id); }
    // Interface for the host's code: nothing here calls it.
    void BTMafterHLightFreq() { m_autoStore.lightChosenPreset(); }
    void initband() { m_bands.showStoredBand(); }
    // A seek from the keys: false when it only stopped a search.
    bool startSeek(bool up) { return m_keys.startSeek(up); }

    // RDS and interrupts.
    void showRdsUnit();
    void AlarmTaStatusEnd() { m_banner.end(); }

    // Remote and steering keys; true when consumed.
    bool onIrKeyEvent(int key, int state) { return m_keys.keyEvent(key, state); }
    bool stepPreset(bool up) { return m_keys.stepPreset(up); }
    void IrUpSelectFreqId() { m_keys.nextPreset(); }
    void IrDownSelectFreqId() { m_keys.previousPreset(); }
    void IrBandChanged() { m_bands.nextBand(); }

    // Reads the radio service's station, programme type and work state and
    // shows them, when the service is new on the bus.
    void synchronise();

    WorkStatus workStatus() const { return m_control.workStatus(); }
    // What the popup shows, for the tests.
    int interruptState() const { return m_banner.state(); }
    const ShownStation &shownStation() const { return *m_shown; }
    c35_011_interrupt_on_tuner *interruptPopup() const { return m_banner.popup(); }

signals:
    void PTYCurrentType(int);
    void backToHome();
    void radioStatus(int type);
    void showOptionWnd();
    void taShowTunerPlayer();
    void alarmCancel();
    void cancelTaAlarm();
    void showOptionItem();

public slots:
    bool onTerminate() { return m_control.stopAnySearch(); }
    void onPiTpStatus(int pitpState) { m_banner.status(pitpState); }
    void onAutoScanCompleted(QString freqList)
    {
        Q_UNUSED(freqList)
        m_autoStore.completed();
    }
    void onFrequencyChanged(int freq, int band);
    void onBandChangState(int state) { m_bands.switchDone(state); }
    void onstatusChanged(int state) { m_rds.showStatus(state); }
    void onRdsName(QString name) { m_rds.showName(name); }
    void onTimer();
    void onScrollerState(QScroller::State);
    void onButGroupClicked(int id) { m_touch.clicked(id, false); }
    void onButGroupPressed(int id) { m_touch.pressed(id); }
    void onButGroupReleased(int) { m_touch.released(); }
    void onSetLocal();
    void onSetTa() { sendTa(m_control.radio()); }
    void onSetAf() { sendAf(m_control.radio()); }
    void onSetRegional() { sendRegional(m_control.radio()); }
    void onSetPty(int value);
    void onAutoScan() { m_autoStore.start(); }
    void onInterruptCancel() { m_banner.dismissed(); }
    void onPtyChanged(int, QString);
    void onSeekState(int);
    void onWorkStatus(int);
    void onSerchTimer() {} // in the meta-object for the host; nothing connects it
    void onSeekPlus() { seek(true); }
    void onSeekMinus() { seek(false); }
    void onOptionMenu();
    void onManualPlusClicked() { m_manual.clicked(true); }
    void onManualPlusPressed() { m_manual.pressed(true); }
    void onManualPlusReleased() { m_manual.released(true); }
    void onManualMinusClicked() { m_manual.clicked(false); }
    void onManualMinusPressed() { m_manual.pressed(false); }
    void onManualMinusReleased() { m_manual.released(false); }
    void onUpdateNavigationIcon_FM(int page) { m_bands.enterFmPage(page); }
    void onUpdateNavigationIcon_AM(int page) { m_bands.enterAmPage(page); }
    void on_Key_0020_switch_band_released() { m_bands.switchFamily(); }

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;

private:
    void init_widget();
    // Shows the service's band, programme type and work state with the last frequency.
    void showServiceState();
    void seek(bool up);

    Ui::c20_003_tuner *ui;
    ShownStation *m_shown;
    RadioControl m_control;
    InterruptBookkeeping m_interrupts;
    DisplayLine m_line;
    TunedFrequency m_frequency;
    PresetPages m_pages;
    PresetLabels m_labels;
    RdsStation m_rds;
    InterruptBanner m_banner;
    BandSwitch m_bands;
    ManualKeys m_manual;
    PresetTouch m_touch;
    RemoteKeys m_keys;
    SearchStatus m_search;
    AutoStore m_autoStore;
    QPoint m_pressPoint{-1, -1};
    QTimer *m_seekSettle = nullptr;
};

} // namespace tuner

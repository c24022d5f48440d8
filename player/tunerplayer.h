#pragma once

#include "bandswitch.h"
#include "displayline.h"
#include "frequencydial.h"
#include "interruptbanner.h"
#include "manualkeys.h"
#include "presetpages.h"
#include "presettouch.h"
#include "rdsdisplay.h"
#include "remotekeys.h"
#include "searchstatus.h"
#include "tunerkeys.h"

#include <QBasicTimer>
#include <QList>
#include <QPoint>
#include <QPointer>
#include <QScroller>
#include <QWidget>

class NiloMcuServiceInterface;
class NiloRadioServiceInterface;
class QButtonGroup;
class QLabel;
class QTimer;

namespace Ui {
class c20_003_tuner;
}

namespace tuner {

class c35_011_interrupt_on_tuner;
class RadioEdge;

// The tuner's main screen: frequency display and tuning, automatic store, the
// RDS name and icons and the interrupt popup. The frequency grid, the preset
// pages, the display-line widgets and the remote keys are its collaborators.
class TunerPlayer : public QWidget
{
    Q_OBJECT
    friend class BandSwitch;
    friend class InterruptBanner;
    friend class ManualKeys;
    friend class PresetTouch;
    friend class RemoteKeys;

public:
    // The radio's reports come through `radioEdge` (the main window's); without
    // one the screen sets up its own around its proxy.
    explicit TunerPlayer(QWidget *parent = nullptr, RadioEdge *radioEdge = nullptr);
    ~TunerPlayer() override;

    // Frequency model.
    void setStep(int step);
    void recalc();
    void setRange(int low, int high) { m_dial.setRange(low, high); }
    void setValue(int value);
    QString normalValue(int value) const { return m_dial.text(value); }
    int freqValue() const { return m_dial.value(); }
    static int freqNormalize(int freq, int low, int high, int step);
    bool isValidFreq();
    void manualPlus();
    void manualMinus();
    void updateBandInfo();
    // Texts fetched again after the host switched languages.
    void retranslate();
    void updateLabelFreq();

    // Presets and pages.
    void setLabelValue(const int *values, int count);
    void updateRdsName();
    void checkedId(int id);
    void highPreset();
    void clearCurFreqId();
    void clearFreqId();
    void scrollToPage(int band);
    void saveFavorite(int id, int freq);
    void setPresetTaAf(int id);
    void BTMafterHLightFreq();
    void initband() { m_bands.showStoredBand(); }

    // RDS and interrupts.
    void showRdsUnit();
    void AlarmTaStatusEnd() { m_banner.end(); }

    // Remote and steering keys; true when consumed.
    bool onIrKeyEvent(int key, int state) { return m_keys.keyEvent(key, state); }
    void IrUpSelectFreqId() { m_keys.nextPreset(); }
    void IrDownSelectFreqId() { m_keys.previousPreset(); }
    void IrBandChanged() { m_keys.nextBand(); }

    // Reads the radio service's station, programme type and work state and
    // shows them (at construction, and when the service is new on the bus).
    void synchronise();

    int workStatus() const { return m_workStatus; }
    WorkStatus status() const { return WorkStatus(m_workStatus); }
    int lastFrequency() const { return m_lastFreq; }
    int interruptState() const { return m_banner.state(); }
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
    bool onTerminate();
    void onPiTpStatus(int pitpState) { m_banner.status(pitpState); }
    void onAutoScanCompleted(QString freqList);
    void onFrequencyChanged(int freq, int band);
    void onBandChangState(int state) { m_bands.switchDone(state); }
    void onstatusChanged(int state) { m_rds.showStatus(state, m_lastFreq); }
    void onRdsName(QString name) { m_rds.showName(name); }
    void onTimer();
    void onScrollerState(QScroller::State);
    void onButGroupClicked(int);
    void onButGroupPressed(int);
    void onButGroupReleased(int) { m_touch.released(); }
    void onSetLocal();
    void onSetTa();
    void onSetAf();
    void onSetRegional();
    void onSetPty(int value);
    void onAutoScan();
    void onInterruptCancel() { m_banner.dismissed(); }
    void onPtyChanged(int, QString);
    void onSeekState(int);
    void onWorkStatus(int);
    void onSerchTimer();
    void onSeekPlus();
    void onSeekMinus();
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
    void clearRdsState();
    void beep(int state);
    void stopAndRetune();
    bool startSeek(bool up);
    void showBandFamily(bool fm);
    void showUnit(bool fm);
    int searchTextId(int workStatus) const;
    void seek(bool up);
    void unlightPlayingPreset();
    bool stopRunningSearch();

    Ui::c20_003_tuner *ui;
    NiloRadioServiceInterface *m_radio;
    NiloMcuServiceInterface *m_mcu;

    FrequencyDial m_dial;
    DisplayLine m_line;
    PresetPages m_pages;
    RdsDisplay m_rds;
    InterruptBanner m_banner;
    ManualKeys m_manual;
    PresetTouch m_touch;
    RemoteKeys m_keys;
    SearchStatus m_search;
    BandSwitch m_bands;
    int m_lastFreq = 0;
    int m_workStatus = 0;
    bool m_tuneRequested = false;
    bool m_seeking = false;
    bool m_bandKeyFromRemote = false;
    bool m_bandSwitched = false;
    bool m_initialised = false;
    QPoint m_pressPoint{-1, -1};

    QTimer *m_seekSettle = nullptr;
};

} // namespace tuner

#pragma once

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

namespace cm {
class ScrollManage;
}

namespace tuner {

class c35_011_interrupt_on_tuner;
class RadioEdge;

// The tuner's main screen: frequency display and tuning, the preset pages,
// automatic store, the RDS name and icons, and the remote and steering keys.
class TunerPlayer : public QWidget
{
    Q_OBJECT
public:
    // The radio's reports come through `radioEdge` (the main window's); without
    // one the screen sets up its own around its proxy.
    explicit TunerPlayer(QWidget *parent = nullptr, RadioEdge *radioEdge = nullptr);
    ~TunerPlayer() override;

    // Frequency model.
    void setStep(int step);
    void recalc();
    void setRange(int low, int high);
    void setValue(int value);
    QString normalValue(int value) const;
    int freqValue() const { return m_value; }
    static int freqNormalize(int freq, int low, int high, int step);
    bool isValidFreq();
    void manualPlus();
    void manualMinus();
    void updateBandInfo();
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
    void initband();

    // RDS and interrupts.
    void showRdsUnit();
    void AlarmTaStatusEnd();

    // Remote and steering keys; true when consumed.
    bool onIrKeyEvent(int key, int state);
    void IrUpSelectFreqId();
    void IrDownSelectFreqId();
    void IrBandChanged();

    // Reads the radio service's station, programme type and work state and
    // shows them (at construction, and when the service is new on the bus).
    void synchronise();

    int workStatus() const { return m_workStatus; }
    int lastFrequency() const { return m_lastFreq; }
    int interruptState() const { return m_interruptState; }
    c35_011_interrupt_on_tuner *interruptPopup() const;

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
    void onPiTpStatus(int pitpState);
    void onAutoScanCompleted(QString freqList);
    void onFrequencyChanged(int freq, int band);
    void onBandChangState(int state);
    void onstatusChanged(int state);
    void onRdsName(QString name);
    void onTimer();
    void onScrollerState(QScroller::State);
    void onButGroupClicked(int);
    void onButGroupPressed(int);
    void onButGroupReleased(int);
    void onSetLocal();
    void onSetTa();
    void onSetAf();
    void onSetRegional();
    void onSetPty(int value);
    void onAutoScan();
    void onInterruptCancel();
    void onPtyChanged(int, QString);
    void onSeekState(int);
    void onWorkStatus(int);
    void onSerchTimer();
    void onSeekPlus();
    void onSeekMinus();
    void onOptionMenu();
    void onManualPlusClicked();
    void onManualPlusPressed();
    void onManualPlusReleased();
    void onManualMinusClicked();
    void onManualMinusPressed();
    void onManualMinusReleased();
    void onUpdateNavigationIcon_FM(int page);
    void onUpdateNavigationIcon_AM(int page);
    void on_Key_0020_switch_band_released();

protected:
    void timerEvent(QTimerEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;

private:
    void init_widget();
    void releaseManualKeys();
    void clearRdsState();
    void beep(int state);
    QWidget *manualKey(bool plus) const;
    void manualClicked(bool plus);
    void manualPressed(bool plus);
    void manualReleased(bool plus);
    void seek(bool up);
    void unlight(QButtonGroup *group);
    void unlightPlayingPreset();
    void lightButton(int band, int id);
    QButtonGroup *group(int band) const;
    QLabel *presetLabel(int band, int id) const;
    cm::ScrollManage *scroller(bool fm);
    void startStatusAnimation(int interval, int textId);
    bool stopRunningSearch();
    void stepToBand(int band);
    void selectStepPreset(int next);
    void storePresetFromKey(int id);
    void irSeek(bool up);
    void raiseInterrupt(int state, int type);
    void showPageImage(int band);

    // Widgets of the active display-line page (null for an unknown mode).
    QLabel *freqLabel() const;
    QLabel *unitLabel() const;
    QLabel *nameLabel() const;
    QLabel *rdsIcon() const;
    QLabel *tpIcon() const;
    int displayLine() const;
    QLabel *byDisplayLine(QLabel *mode1, QLabel *mode0) const;

    Ui::c20_003_tuner *ui;
    NiloRadioServiceInterface *m_radio;
    NiloMcuServiceInterface *m_mcu;

    int m_value = 0;
    int m_step = 10;
    int m_decimals = 0;
    int m_minimum = 0;
    int m_maximum = 0;
    int m_lastFreq = 0;
    int m_workStatus = 0;
    int m_pageImageBand = -1; // the form starts with no band's indicator set by us
    bool m_tuneRequested = false;
    bool m_seeking = false;
    bool m_manualStepping = false;
    bool m_bandKeyFromRemote = false;
    bool m_bandSwitched = false;
    bool m_initialised = false;
    QPoint m_pressPoint{-1, -1};
    int m_interruptState = 0;
    QPointer<c35_011_interrupt_on_tuner> m_popup;

    QList<QButtonGroup *> m_groups;
    QList<QList<QLabel *>> m_labels;
    cm::ScrollManage *m_fmScroller = nullptr;
    cm::ScrollManage *m_amScroller = nullptr;
    int m_pressedPreset = 0;
    int m_lastClickedPreset = 6;
    bool m_presetSaved = false;

    QBasicTimer m_presetHoldTimer;
    QBasicTimer m_manualPlusTimer;
    QBasicTimer m_manualMinusTimer;
    QBasicTimer m_statusTimer;
    QBasicTimer m_bandKeyLock;
    QBasicTimer m_manualKeyRelease;
    QTimer *m_seekSettle = nullptr;
    QString m_dots;
    int m_dotsShown = 0;
};

} // namespace tuner

#pragma once

#include <QBasicTimer>
#include <QScroller>
#include <QWidget>

class KeyEvent;

namespace tuner {

class OptionWidget;
class PTYSearchWidget;
class PTYWidget;
class RadioEdge;
class ShownStation;
class TunerPlayer;

// The stack of screens the main window hands to the host: the tuner player,
// the option list, the PTY list and the PTY search popup, one at a time.
class MainWidget : public QWidget
{
    Q_OBJECT
public:
    // `radioEdge` is the main window's; without one the player listens on its
    // own. The player's display line writes the station it shows to `shown`.
    explicit MainWidget(QWidget *parent = nullptr, RadioEdge *radioEdge = nullptr, ShownStation *shown = nullptr);
    ~MainWidget() override;

    // Calls from the main window; each is skipped when its screen is missing.
    void resume();
    bool windowKeyEvent(KeyEvent *event);
    // The tuner screen's preset step without a key; false when it is not up.
    bool stepPreset(bool up);
    void terminate();
    void autoScanCompleted(const QString &freqList);
    void updateFreq();
    void PTYsearchStatus(int status);
    void statusChanged(int state);
    void RDSName(QString name);
    void piTpStatus(int state);
    void InterruptCancel();
    void BandChanged();
    void scrollToPage(int band);
    void updatePresetChecked();
    // The host switched languages: every screen fetches its texts again.
    void retranslate();
    // The radio service is new on the bus: the player reads it again.
    void synchronise();

    void showPTYSerch();

    TunerPlayer *player() const { return m_player; }
    PTYWidget *ptyList() const { return m_ptyList; }
    PTYSearchWidget *searchPopup() const { return m_searchPopup; }
    OptionWidget *optionList() const { return m_optionList; }
    bool searchDoneTimerActive() const { return m_searchDoneTimer.isActive(); }
    bool optionReturnTimerActive() const { return m_optionReturnTimer.isActive(); }

signals:
    void alarmCancel();
    void cancelTaAlarm();

public slots:
    void onShowTunerPlayer();
    void onShowPTYWdiget();
    void onPTYSerchStatus(int id);
    void onShowOptionWnd();
    void onListStateChange(QScroller::State state);
    void onPTYSeachItem(QString name);
    void onPTYcurItem(int type);
    void onRadioState(int type);
    void onClosePTYSearchWnd();

protected:
    bool event(QEvent *event) override;
    void timerEvent(QTimerEvent *event) override;

private:
    void hideAllPage();

    TunerPlayer *m_player = nullptr;
    PTYWidget *m_ptyList = nullptr;
    PTYSearchWidget *m_searchPopup = nullptr;
    OptionWidget *m_optionList = nullptr;
    QBasicTimer m_searchDoneTimer;
    QBasicTimer m_optionReturnTimer;
    QScroller::State m_listState = QScroller::Inactive;
    bool m_searchStarted = false;
};

} // namespace tuner

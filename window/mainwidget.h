#pragma once

#include <QWidget>

class KeyEvent;

namespace tuner {

class TunerPlayer;

// The stack of screens that the main window hands to the host. It shows one
// screen at a time; for now that is the tuner player.
class MainWidget : public QWidget
{
    Q_OBJECT
public:
    explicit MainWidget(QWidget *parent = nullptr);

    void resume();
    bool windowKeyEvent(KeyEvent *event);
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

    TunerPlayer *player() const { return m_player; }

signals:
    void alarmCancel();
    void cancelTaAlarm();

public slots:
    void onShowTunerPlayer();

protected:
    bool event(QEvent *event) override;

private:
    TunerPlayer *m_player;
};

} // namespace tuner

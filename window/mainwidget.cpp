#include "mainwidget.h"

#include "hostevents.h"
#include "tunerplayer.h"
#include "tuneroptions.h"

namespace tuner {

MainWidget::MainWidget(QWidget *parent)
    : QWidget(parent)
    , m_player(new TunerPlayer(this))
{
    setObjectName(QStringLiteral("MainWidget"));
    resize(800, 480);
    connect(m_player, SIGNAL(taShowTunerPlayer()), this, SLOT(onShowTunerPlayer()));
    connect(m_player, SIGNAL(alarmCancel()), this, SIGNAL(alarmCancel()));
    connect(m_player, SIGNAL(cancelTaAlarm()), this, SIGNAL(cancelTaAlarm()));
    onShowTunerPlayer();
}

void MainWidget::onShowTunerPlayer()
{
    m_player->show();
    g_TunerCurDSPL = 1;
    m_player->highPreset();
}

void MainWidget::resume()
{
    onShowTunerPlayer();
}

bool MainWidget::windowKeyEvent(KeyEvent *event)
{
    return event && m_player->onIrKeyEvent(event->key(), event->type());
}

void MainWidget::terminate()
{
    m_player->onTerminate();
}

void MainWidget::autoScanCompleted(const QString &freqList)
{
    m_player->onAutoScanCompleted(freqList);
}

void MainWidget::updateFreq()
{
    m_player->updateLabelFreq();
    m_player->initband();
}

void MainWidget::PTYsearchStatus(int) {}

void MainWidget::statusChanged(int state)
{
    m_player->onstatusChanged(state);
}

// The service's "no name" arrives empty; the player knows it as "NULL".
void MainWidget::RDSName(QString name)
{
    m_player->onRdsName(name.isEmpty() ? QStringLiteral("NULL") : name);
}

void MainWidget::piTpStatus(int state)
{
    m_player->onPiTpStatus(state);
}

void MainWidget::InterruptCancel()
{
    m_player->AlarmTaStatusEnd();
}

void MainWidget::BandChanged()
{
    m_player->IrBandChanged();
}

void MainWidget::scrollToPage(int band)
{
    m_player->scrollToPage(band);
}

void MainWidget::updatePresetChecked()
{
    m_player->highPreset();
}

bool MainWidget::event(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        return true;
    return QWidget::event(event);
}

} // namespace tuner

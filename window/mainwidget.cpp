#include "mainwidget.h"

#include "hostevents.h"
#include "optionwidget.h"
#include "preferences.h"
#include "ptysearchwidget.h"
#include "ptywidget.h"
#include "tunerlog.h"
#include "tuneroptions.h"
#include "tunerplayer.h"

#include <QTimerEvent>

namespace tuner {

namespace {
constexpr int kReturnMs = 5000;
} // namespace

MainWidget::MainWidget(QWidget *parent, RadioEdge *radioEdge, ShownStation *shown)
    : QWidget(parent)
{
    setObjectName(QStringLiteral("MainWidget"));
    resize(800, 480);
    m_player = new TunerPlayer(this, radioEdge, shown);
    hideAllPage();
    if (Preferences::getInstance()->PTYSeachState() != kPtySearching) {
        m_player->show();
        g_TunerCurDSPL = DisplayPlayer;
    } else {
        // A search was running when the window was last built: bring its popup back.
        onPTYSerchStatus(kPtySearching);
        onRadioState(kPtySearching);
    }
    connect(m_player, SIGNAL(showOptionWnd()), this, SLOT(onShowOptionWnd()));
    connect(m_player, SIGNAL(taShowTunerPlayer()), this, SLOT(onShowTunerPlayer()));
    connect(m_player, SIGNAL(PTYCurrentType(int)), this, SLOT(onPTYcurItem(int)));
    connect(m_player, SIGNAL(alarmCancel()), this, SIGNAL(alarmCancel()));
    connect(m_player, SIGNAL(cancelTaAlarm()), this, SIGNAL(cancelTaAlarm()));
}

MainWidget::~MainWidget() = default;

void MainWidget::retranslate()
{
    m_player->retranslate();
    if (m_ptyList)
        m_ptyList->retranslate();
    if (m_optionList)
        m_optionList->retranslate();
    if (m_searchPopup)
        m_searchPopup->retranslate();
}

// The PTY list is kept hidden; the option list and the search popup are
// built anew, with fresh connections, each time they are shown.
void MainWidget::hideAllPage()
{
    m_player->hide();
    if (m_ptyList)
        m_ptyList->hide();
    if (m_searchPopup) {
        if (sender() == m_searchPopup) {
            // Its Close press is still being delivered: deleting it now would
            // pull the button from under that delivery.
            m_searchPopup->hide();
            m_searchPopup->deleteLater();
        } else {
            delete m_searchPopup;
        }
        m_searchPopup = nullptr;
    }
    if (m_optionList) {
        m_optionList->hide();
        m_optionList->deleteLater();
        m_optionList = nullptr;
    }
}

void MainWidget::onShowTunerPlayer()
{
    hideAllPage();
    m_player->show();
    m_player->highPreset();
    g_TunerCurDSPL = DisplayPlayer;
}

void MainWidget::onShowOptionWnd()
{
    hideAllPage();
    m_optionList = new OptionWidget(this);
    connect(m_optionList, SIGNAL(OpAutoScan()), m_player, SLOT(onAutoScan()));
    connect(m_optionList, SIGNAL(opTaStatus()), m_player, SLOT(onSetTa()));
    connect(m_optionList, SIGNAL(opLocalStatus()), m_player, SLOT(onSetLocal()));
    connect(m_optionList, SIGNAL(opAfStatus()), m_player, SLOT(onSetAf()));
    connect(m_optionList, SIGNAL(opRegionalStatus()), m_player, SLOT(onSetRegional()));
    connect(m_optionList, SIGNAL(showPTYWidget()), this, SLOT(onShowPTYWdiget()));
    connect(m_optionList, SIGNAL(backTunerPlayer()), this, SLOT(onShowTunerPlayer()));
    connect(m_player, SIGNAL(showOptionItem()), m_optionList, SLOT(onShowOptionItem()));
    m_optionList->show();
    m_optionReturnTimer.stop();
    g_TunerCurDSPL = DisplayOptionList;
}

void MainWidget::onShowPTYWdiget()
{
    hideAllPage();
    if (!m_ptyList) {
        m_ptyList = new PTYWidget(this);
        connect(m_ptyList, SIGNAL(backtuner()), this, SLOT(onShowOptionWnd()));
        connect(m_ptyList, SIGNAL(PTYChecked(int)), m_player, SLOT(onSetPty(int)));
        connect(m_ptyList, SIGNAL(PTYSearchName(QString)), this, SLOT(onPTYSeachItem(QString)));
        connect(m_ptyList, SIGNAL(ListStateChange(QScroller::State)), this, SLOT(onListStateChange(QScroller::State)));
    }
    Preferences *p = Preferences::getInstance();
    if (p->closeClicked()) {
        m_ptyList->onListToFirstPage();
        p->setCloseClick(false);
    }
    m_ptyList->show();
    m_searchDoneTimer.stop();
    if (m_searchStarted && !m_optionReturnTimer.isActive())
        m_optionReturnTimer.start(kReturnMs, this);
    g_TunerCurDSPL = DisplayPtyList;
}

void MainWidget::showPTYSerch()
{
    hideAllPage();
    m_searchPopup = new PTYSearchWidget(this);
    connect(m_searchPopup, SIGNAL(closePTYSearchWnd()), this, SLOT(onShowPTYWdiget()));
    m_searchPopup->show();
}

void MainWidget::onPTYSerchStatus(int id)
{
    switch (id) {
    case kPtySearching:
        showPTYSerch();
        m_searchPopup->hideCloseBtn();
        g_TunerCurDSPL = DisplayPtySearching;
        m_searchStarted = true;
        m_optionReturnTimer.stop();
        break;
    case kPtyNotFound:
        if (m_searchPopup) {
            if (m_searchPopup->isHidden())
                m_searchPopup->show();
        } else {
            showPTYSerch();
        }
        m_searchPopup->showCloseBtn();
        g_TunerCurDSPL = DisplayPtySearchEnded;
        if (!m_searchDoneTimer.isActive())
            m_searchDoneTimer.start(kReturnMs, this);
        break;
    case kPtyFound:
        onShowPTYWdiget();
        break;
    default:
        break;
    }
}

void MainWidget::onRadioState(int type)
{
    if (m_searchPopup)
        m_searchPopup->onPTYSerachStatus(type);
}

// A finished search leaves the PTY list up for five seconds of inactivity,
// then returns to the options; touching the list restarts the wait.
void MainWidget::onListStateChange(QScroller::State state)
{
    const QScroller::State previous = m_listState;
    m_listState = state;
    if (!m_searchStarted || g_TunerCurDSPL != DisplayPtyList)
        return;
    const auto moving = [](QScroller::State s) { return s == QScroller::Dragging || s == QScroller::Scrolling; };
    if (moving(state)) {
        m_optionReturnTimer.stop();
    } else if (moving(previous) && state == QScroller::Inactive && !m_optionReturnTimer.isActive()) {
        m_optionReturnTimer.start(kReturnMs, this);
    }
}

void MainWidget::onPTYSeachItem(QString name)
{
    Preferences::getInstance()->setPTYSerchName(name);
    if (m_searchPopup)
        m_searchPopup->onPTYSerachName(name);
}

void MainWidget::onPTYcurItem(int type)
{
    if (m_ptyList)
        m_ptyList->onPTYChanged(type);
    if (m_optionList)
        m_optionList->onCurPTYItem(type);
}

void MainWidget::onClosePTYSearchWnd() {}

void MainWidget::timerEvent(QTimerEvent *event)
{
    if (event->timerId() == m_searchDoneTimer.timerId()) {
        m_searchDoneTimer.stop();
        onShowTunerPlayer();
    } else if (event->timerId() == m_optionReturnTimer.timerId()) {
        m_optionReturnTimer.stop();
        onShowOptionWnd();
        m_searchStarted = false;
    } else {
        QWidget::timerEvent(event);
    }
}

void MainWidget::resume()
{
    hideAllPage();
    m_player->show();
}

bool MainWidget::windowKeyEvent(KeyEvent *event)
{
    return event && m_player->onIrKeyEvent(event->key(), event->type());
}

bool MainWidget::stepPreset(bool up)
{
    return m_player->stepPreset(up);
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

void MainWidget::PTYsearchStatus(int status)
{
    onPTYSerchStatus(status);
    onRadioState(status);
}

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

void MainWidget::synchronise()
{
    m_player->synchronise();
}

bool MainWidget::event(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        return true;
    return QWidget::event(event);
}

} // namespace tuner

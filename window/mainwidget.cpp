#include "mainwidget.h"

#include "busproxies.h"
#include "hostevents.h"
#include "mcumanager.h"
#include "preferences.h"
#include "translator.h"

#include <QLabel>

namespace tuner {

namespace {

// FM in hundredths of a MHz: two decimals on a fine grid, one on a coarse one.
QString formatFrequency(int freq, bool fm, int step)
{
    if (!fm)
        return QString::number(freq);
    const int decimals = step > 9 ? 1 : 2;
    QString digits = QString::number(freq);
    if (decimals == 1)
        digits.chop(1);
    if (digits.size() <= decimals)
        digits = digits.rightJustified(decimals + 1, QLatin1Char('0'));
    return digits.left(digits.size() - decimals) + QLatin1Char('.') + digits.right(decimals);
}

} // namespace

MainWidget::MainWidget(QWidget *parent)
    : QWidget(parent)
    , m_radio(bus::createRadioProxy(this))
{
    setObjectName(QStringLiteral("MainWidget"));
    resize(800, 480);
    setAutoFillBackground(true);
    QPalette p = palette();
    p.setColor(QPalette::Window, QColor(0x10, 0x14, 0x1a));
    p.setColor(QPalette::WindowText, QColor(0xf2, 0xf2, 0xf2));
    setPalette(p);

    m_band = addLabel("Txt_0017_band_name", 40, 40, 200, 50, 32);
    m_freq = addLabel("Txt_0035_rds_freq", 200, 130, 400, 120, 96);
    m_freq->setAlignment(Qt::AlignCenter);
    m_unit = addLabel("Txt_0036_rds_unit", 600, 190, 120, 50, 32);
    m_name = addLabel("Txt_0037_rds_name", 100, 260, 600, 60, 40);
    m_name->setAlignment(Qt::AlignCenter);
    m_status = addLabel("Txt_0022_status", 100, 330, 600, 50, 28);
    m_status->setAlignment(Qt::AlignCenter);
    m_interrupt = addLabel("Txt_0021_interrupt", 100, 390, 600, 50, 28);
    m_interrupt->setAlignment(Qt::AlignCenter);

    connect(m_radio, SIGNAL(stationChanged(int,int)), this, SLOT(onStationChanged(int,int)));
    connect(m_radio, SIGNAL(work_status(int)), this, SLOT(onWorkStatus(int)));
    refresh();
}

QLabel *MainWidget::addLabel(const char *objectName, int x, int y, int w, int h, int pixelSize)
{
    auto *label = new QLabel(this);
    label->setObjectName(QLatin1String(objectName));
    label->setGeometry(x, y, w, h);
    QFont font = label->font();
    font.setPixelSize(pixelSize);
    label->setFont(font);
    return label;
}

void MainWidget::refresh()
{
    Preferences *p = Preferences::getInstance();
    m_band->setText(Translator::translate(p->isFM() ? 39 : 49) + QLatin1Char(' ')
                    + QString::number(p->isFM() ? p->band() + 1 : p->band() - 2));
    m_freq->setText(formatFrequency(p->playFreq(), p->isFM(), p->stepFreq()));
    m_unit->setText(Translator::translate(p->isFM() ? 40 : 50));
}

void MainWidget::onStationChanged(int freq, int band)
{
    Q_UNUSED(freq)
    Q_UNUSED(band)
    refresh();
}

void MainWidget::onWorkStatus(int state)
{
    static const QHash<int, int> texts = {{1, 45}, {2, 41}, {3, 42}, {4, 48}, {5, 47}};
    m_status->setText(texts.contains(state) ? Translator::translate(texts.value(state)) : QString());
    refresh();
}

void MainWidget::resume()
{
    show();
    refresh();
}

bool MainWidget::windowKeyEvent(KeyEvent *)
{
    return false;
}

void MainWidget::terminate() {}

void MainWidget::autoScanCompleted(const QString &)
{
    refresh();
}

void MainWidget::updateFreq()
{
    refresh();
}

void MainWidget::PTYsearchStatus(int) {}

void MainWidget::statusChanged(int) {}

void MainWidget::RDSName(QString name)
{
    m_name->setText(Preferences::delControlChar(name));
}

void MainWidget::piTpStatus(int state)
{
    if (state == 3)
        m_interrupt->setText(Translator::translate(112));
    else if (state == 5)
        m_interrupt->setText(Translator::translate(106));
    else if (state == 4 || state == 6)
        m_interrupt->clear();
}

// Closing the interrupt ends its audio, as the popup of the tuner screen does.
void MainWidget::InterruptCancel()
{
    if (m_interrupt->text().isEmpty())
        return;
    McuManager::instance()->updateAudioStatus(McuManager::AudioStatusInterruptEnd);
    if (Preferences::getInstance()->taOrAlarm() == INTERRUPT_TA)
        m_radio->taAlarmCancel(1);
    m_interrupt->clear();
}

void MainWidget::BandChanged()
{
    refresh();
}

void MainWidget::scrollToPage(int band)
{
    Preferences::getInstance()->setBand(Band(band));
    refresh();
}

void MainWidget::updatePresetChecked()
{
    refresh();
}

bool MainWidget::event(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        return true;
    return QWidget::event(event);
}

} // namespace tuner

#include "displayline.h"

#include "scrolllabel.h"
#include "settingsutil.h"
#include "shownstation.h"
#include "translator.h"
#include "ui_c20_003_tuner.h"

namespace tuner {

DisplayLine::DisplayLine(Ui::c20_003_tuner *form, ShownStation *shown)
    : ui(form)
    , m_shown(shown)
{}

void DisplayLine::tell(void (ShownStation::*set)(const QString &), const QString &value)
{
    if (m_shown)
        (m_shown->*set)(value);
}

int DisplayLine::mode() const
{
    return cm::SettingsUtil::instance()->getRadioInfoDispLine();
}

QLabel *DisplayLine::pick(QLabel *mode1, QLabel *mode0) const
{
    const int line = mode();
    return line == 1 ? mode1 : line == 0 ? mode0 : nullptr;
}

QLabel *DisplayLine::freq() const
{
    return pick(ui->Txt_0035_rds_freq, ui->Txt_0019_rds_freq);
}

QLabel *DisplayLine::unit() const
{
    return pick(ui->Txt_0036_rds_unit, ui->Txt_0020_rds_unit);
}

QLabel *DisplayLine::name() const
{
    return pick(ui->Txt_0037_rds_name, ui->Txt_0018_rds_name);
}

QLabel *DisplayLine::rdsIcon() const
{
    return pick(ui->Icn_0020_rds, ui->Icn_0015_rds);
}

QLabel *DisplayLine::tpIcon() const
{
    return pick(ui->Icn_0021_tp, ui->Icn_0016_tp);
}

bool DisplayLine::turnToPage()
{
    const int line = mode();
    if (line != 0 && line != 1)
        return false;
    ui->stackedWidget_tuner->setCurrentWidget(line == 1 ? ui->page_tuner_01 : ui->page_tuner_02);
    return true;
}

void DisplayLine::mirror(QLabel *mode1Label, QLabel *page2Label, const QString &text)
{
    if (QLabel *label = pick(mode1Label, page2Label))
        label->setText(text);
    if (mode() == 1)
        page2Label->setText(text);
}

void DisplayLine::showFrequency(const QString &text)
{
    if (turnToPage())
        setFrequencyText(text);
}

void DisplayLine::setFrequencyText(const QString &text)
{
    mirror(ui->Txt_0035_rds_freq, ui->Txt_0019_rds_freq, text);
    tell(&ShownStation::setFrequency, text);
}

void DisplayLine::showRecalledFrequency(const QString &text)
{
    for (QLabel *icon : {rdsIcon(), tpIcon()}) {
        if (icon)
            icon->hide();
    }
    showFrequency(text);
}

void DisplayLine::showUnit(bool fm)
{
    const QString unit = Translator::translate(fm ? 40 : 50);
    mirror(ui->Txt_0036_rds_unit, ui->Txt_0020_rds_unit, unit);
    tell(&ShownStation::setUnit, unit);
}

void DisplayLine::showName(const QString &name, bool fm)
{
    const int line = mode();
    turnToPage();
    if (line == 0) {
        const bool showName = fm && !name.isEmpty();
        ui->Txt_0019_rds_freq->setVisible(!showName);
        ui->Txt_0020_rds_unit->setVisible(!showName);
        ui->Txt_0018_rds_name->setVisible(showName);
        ui->Txt_0018_rds_name->setText(name);
    } else if (line == 1) {
        ScrollLabel *label = ui->Txt_0037_rds_name;
        label->setVisible(fm);
        label->setText(name);
        label->updateCoordinates();
        // A name longer than the label runs as a marquee.
        if (label->fontMetrics().horizontalAdvance(name) > label->width())
            label->onStart();
        else
            label->onStop();
    }
    tell(&ShownStation::setName, fm ? name : QString());
}

void DisplayLine::hideName()
{
    if (QLabel *label = name())
        label->hide();
    tell(&ShownStation::setName, QString());
}

void DisplayLine::showInterruptPage()
{
    ui->stackedWidget_tuner->setCurrentWidget(ui->page_tuner_02);
    ui->Icn_0015_rds->show();
    ui->Icn_0016_tp->show();
}

void DisplayLine::showAmFrequencyPage()
{
    ui->Icn_0015_rds->hide();
    ui->Icn_0016_tp->hide();
    ui->Txt_0019_rds_freq->show();
    ui->Txt_0020_rds_unit->show();
    ui->Txt_0018_rds_name->hide();
    if (mode() == 0)
        tell(&ShownStation::setName, QString());
}

} // namespace tuner

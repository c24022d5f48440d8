#include "interruptpopup.h"

#include "busproxies.h"
#include "colorcontrol.h"
#include "preferences.h"
#include "theme.h"
#include "translator.h"
#include "ui_c35_011_interrupt_on_tuner.h"

namespace tuner {

c35_011_interrupt_on_tuner::c35_011_interrupt_on_tuner(QWidget *parent)
    : QWidget(parent)
    , ui(new Ui::c35_011_interrupt_on_tuner)
{
    ui->setupUi(this);
    cm::usePanelFontSizes(this);
    ui->Txt_0021_interrupt->hide();
    // Touches on the popup never reach the tuner screen below; those on the
    // caption reach the button under it.
    setAttribute(Qt::WA_NoMousePropagation);
    ui->Txt_0419_cancel->setAttribute(Qt::WA_TransparentForMouseEvents);
    m_mcu = bus::createMcuProxy(this);
    ui->Txt_0419_cancel->setText(Translator::translate(189));
    new cm::ColorControl(ui->Key_0347_cancel, ui->Txt_0419_cancel, this);
}

c35_011_interrupt_on_tuner::~c35_011_interrupt_on_tuner()
{
    delete ui;
}

void c35_011_interrupt_on_tuner::onInterruptType(InterruptType type)
{
    if (type == INTERRUPT_ALARM)
        ui->Txt_0021_interrupt->setText(Translator::translate(106));
    else if (type == INTERRUPT_TA)
        ui->Txt_0021_interrupt->setText(Translator::translate(112));
    else
        return;
    ui->Txt_0021_interrupt->show();
}

void c35_011_interrupt_on_tuner::retranslate()
{
    ui->Txt_0419_cancel->setText(Translator::translate(189));
    if (ui->Txt_0021_interrupt->isVisibleTo(this))
        onInterruptType(InterruptType(Preferences::getInstance()->taOrAlarm()));
}

QString c35_011_interrupt_on_tuner::taAlarmText() const
{
    return ui->Txt_0021_interrupt->text();
}

// The popup beeps through its own MCU proxy, not through the host's McuManager.
void c35_011_interrupt_on_tuner::on_Key_0347_cancel_clicked()
{
    if (!isVisible())
        return;
    m_mcu->triggerBeep(0);
    emit cancel();
}

} // namespace tuner

#pragma once

#include "preferences.h"

#include <QWidget>

class NiloMcuServiceInterface;

namespace Ui {
class c35_011_interrupt_on_tuner;
}

namespace tuner {

// Laid over the tuner screen while a traffic announcement or an alarm
// interrupts the radio: names the interruption and offers Cancel.
class c35_011_interrupt_on_tuner : public QWidget
{
    Q_OBJECT
public:
    explicit c35_011_interrupt_on_tuner(QWidget *parent = nullptr);
    ~c35_011_interrupt_on_tuner() override;

    void onInterruptType(InterruptType type);
    QString taAlarmText() const;
    // Texts fetched again after the host switched languages.
    void retranslate();

signals:
    void cancel();

private slots:
    void on_Key_0347_cancel_clicked();

private:
    Ui::c35_011_interrupt_on_tuner *ui;
    NiloMcuServiceInterface *m_mcu;
};

} // namespace tuner

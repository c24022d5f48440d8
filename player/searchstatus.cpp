#include "searchstatus.h"

#include "preferences.h"
#include "translator.h"
#include "ui_c20_003_tuner.h"

#include <QTimerEvent>

namespace tuner {

SearchStatus::SearchStatus(Ui::c20_003_tuner *form)
    : ui(form)
    , m_dots(ui->Txt_0384_status2->text())
{
    ui->Txt_0384_status2->setAlignment(Qt::AlignLeft | Qt::AlignBottom);
}

void SearchStatus::show(WorkStatus status)
{
    const bool local = prefs()->isLocal();
    switch (status) {
    case WorkStatus::AutoStore:
        return show(500, Translator::translate(45));
    case WorkStatus::SeekUp:
        return show(400, Translator::translate(local ? 43 : 41));
    case WorkStatus::SeekDown:
        return show(400, Translator::translate(local ? 44 : 42));
    case WorkStatus::PtySearchUp:
        return show(500, Translator::translate(48));
    case WorkStatus::PtySearchDown:
        return show(500, Translator::translate(47));
    case WorkStatus::Idle:
        break;
    }
}

void SearchStatus::show(int periodMs, const QString &text)
{
    ui->stackedWidget_tuner->setCurrentWidget(ui->page_tuner_04);
    if (!m_dotsTimer.isActive())
        m_dotsTimer.start(periodMs, this);
    ui->Txt_0022_status->setText(text);
}

void SearchStatus::stop()
{
    m_dotsTimer.stop();
}

void SearchStatus::timerEvent(QTimerEvent *event)
{
    if (event->timerId() != m_dotsTimer.timerId())
        return QObject::timerEvent(event);
    if (++m_dotsShown > m_dots.size())
        m_dotsShown = 1;
    ui->Txt_0384_status2->setText(m_dots.right(m_dotsShown));
}

} // namespace tuner

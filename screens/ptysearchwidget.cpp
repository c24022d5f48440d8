#include "ptysearchwidget.h"

#include "colorcontrol.h"
#include "mcumanager.h"
#include "preferences.h"
#include "pushbutton.h"
#include "theme.h"
#include "translator.h"
#include "ui_c35_004_text_w_button.h"

#include <QTimer>

namespace tuner {

namespace {
constexpr int kDotsMs = 500;
}

PTYSearchWidget::PTYSearchWidget(QWidget *parent)
    : QWidget(parent)
    , ui(new Ui::c35_004_text_w_button)
{
    ui->setupUi(this);
    cm::usePanelFontSizes(this);
    retranslateUi();
    ui->Txt_0112_close->setAttribute(Qt::WA_TransparentForMouseEvents);
    for (QWidget *label : {static_cast<QWidget *>(ui->Txt_0110_line1), static_cast<QWidget *>(ui->Txt_0111_line2),
                           static_cast<QWidget *>(ui->Txt_0112_close), static_cast<QWidget *>(ui->Txt_0464_animation)})
        cm::ColorControl::setDescription(label);

    auto *close = new cm::PushButton(ui->Key_0085_close, this);
    close->setLongPressedInterval(2000);
    connect(close, SIGNAL(shortClicked()), this, SLOT(onClose_0085()));
    m_timer = new QTimer(this);
    connect(m_timer, SIGNAL(timeout()), this, SLOT(onTimer()));
    m_dots = ui->Txt_0464_animation->text();
    ui->Txt_0464_animation->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);

    // Built anew at every showing: pick up a search already under way.
    onPTYSerachName(Preferences::getInstance()->PTYseachItem());
    onPTYSerachStatus(Preferences::getInstance()->PTYSeachState());
}

PTYSearchWidget::~PTYSearchWidget()
{
    delete ui;
}

void PTYSearchWidget::retranslateUi()
{
    ui->Txt_0112_close->setText(Translator::translate(2));
    ui->Txt_0110_line1->setText(Translator::translate(105));
}

void PTYSearchWidget::retranslate()
{
    ui->Txt_0112_close->setText(Translator::translate(2));
    ui->Txt_0110_line1->setText(Translator::translate(isAnimating() ? 104 : 105));
}

bool PTYSearchWidget::isAnimating() const
{
    return m_timer->isActive();
}

void PTYSearchWidget::onPTYSerachStatus(int type)
{
    switch (type) {
    case 3:
        if (!m_timer->isActive())
            m_timer->start(kDotsMs);
        ui->Txt_0110_line1->setText(Translator::translate(104));
        ui->Txt_0111_line2->setText(m_name);
        ui->Txt_0464_animation->show();
        break;
    case 4:
        ui->Txt_0110_line1->setText(Translator::translate(105));
        ui->Txt_0111_line2->setText(m_name);
        ui->Txt_0464_animation->hide();
        if (m_timer->isActive())
            m_timer->stop();
        break;
    case 6:
        if (m_timer->isActive())
            m_timer->stop();
        break;
    default:
        break;
    }
}

// Shown with the next status, not at once.
void PTYSearchWidget::onPTYSerachName(QString name)
{
    m_name = name;
}

// The stack deletes the popup on this signal: nothing may follow it.
void PTYSearchWidget::onClose_0085()
{
    McuManager::instance()->triggerBeep(0);
    Preferences::getInstance()->setCloseClick(true);
    emit closePTYSearchWnd();
}

void PTYSearchWidget::onTimer()
{
    if (++m_step > m_dots.size())
        m_step = 1;
    ui->Txt_0464_animation->setText(m_dots.right(m_step));
}

void PTYSearchWidget::hideCloseBtn()
{
    ui->Key_0085_close->hide();
    ui->Txt_0112_close->hide();
}

void PTYSearchWidget::showCloseBtn()
{
    ui->Key_0085_close->show();
    ui->Txt_0112_close->show();
}

} // namespace tuner

#include "presetpages.h"

#include "colorcontrol.h"
#include "preferences.h"
#include "scrolllabel.h"
#include "scrollmanage.h"
#include "theme.h"
#include "tunerlog.h"
#include "ui_c20_003_tuner.h"

#include <QButtonGroup>
#include <QPushButton>
#include <QScrollArea>

namespace tuner {

namespace {

const char *const kPageImages[] = {
    ":/Resource/tuner/Icn_0067_page_fm1_n.png", ":/Resource/tuner/Icn_0067_page_fm2_n.png",
    ":/Resource/tuner/Icn_0067_page_fm3_n.png", ":/Resource/tuner/Icn_0067_page_am1_n.png",
    ":/Resource/tuner/Icn_0067_page_am2_n.png",
};

} // namespace

PresetPages::PresetPages(Ui::c20_003_tuner *form, QWidget *screen)
    : ui(form)
    , m_screen(screen)
{
    const QList<QList<QPushButton *>> buttons{
        {ui->Key_0030_p1, ui->Key_0031_p2, ui->Key_0032_p3, ui->Key_0033_p4, ui->Key_0034_p5, ui->Key_0035_p6},
        {ui->Key_0393_p7, ui->Key_0394_p8, ui->Key_0395_p9, ui->Key_0396_p10, ui->Key_0397_p11, ui->Key_0398_p12},
        {ui->Key_0399_p13, ui->Key_0400_p14, ui->Key_0401_p15, ui->Key_0402_p16, ui->Key_0403_p17, ui->Key_0404_p18},
        {ui->Key_0406_p1, ui->Key_0407_p2, ui->Key_0408_p3, ui->Key_0409_p4, ui->Key_0410_p5, ui->Key_0411_p6},
        {ui->Key_0412_p7, ui->Key_0413_p8, ui->Key_0414_p9, ui->Key_0415_p10, ui->Key_0416_p11, ui->Key_0417_p12},
    };
    m_labels = {
        {ui->Txt_0023_f1, ui->Txt_0024_f2, ui->Txt_0025_f3, ui->Txt_0026_f4, ui->Txt_0027_f5, ui->Txt_0028_f6},
        {ui->Txt_0466_f7, ui->Txt_0467_f8, ui->Txt_0468_f9, ui->Txt_0469_f10, ui->Txt_0470_f11, ui->Txt_0471_f12},
        {ui->Txt_0472_f13, ui->Txt_0473_f14, ui->Txt_0474_f15, ui->Txt_0475_f16, ui->Txt_0476_f17, ui->Txt_0477_f18},
        {ui->Txt_0481_f1, ui->Txt_0482_f2, ui->Txt_0483_f3, ui->Txt_0484_f4, ui->Txt_0485_f5, ui->Txt_0486_f6},
        {ui->Txt_0487_f7, ui->Txt_0488_f8, ui->Txt_0489_f9, ui->Txt_0490_f10, ui->Txt_0491_f11, ui->Txt_0492_f12},
    };
    for (int band = 0; band < buttons.size(); ++band) {
        auto *presets = new QButtonGroup(screen);
        for (int id = 0; id < buttons[band].size(); ++id) {
            QPushButton *button = buttons[band][id];
            // The form gives the first page its number images; the other
            // pages share them, so each image is decoded once.
            if (band > 0)
                button->setIcon(buttons[0][id]->icon());
            button->setCheckable(true);
            presets->addButton(button, id);
            new cm::ColorControl(button, m_labels[band][id], screen);
            m_labels[band][id]->setFont(cm::digitFont(m_labels[band][id]->font().pixelSize()));
        }
        QObject::connect(presets, SIGNAL(buttonClicked(int)), screen, SLOT(onButGroupClicked(int)));
        QObject::connect(presets, SIGNAL(buttonPressed(int)), screen, SLOT(onButGroupPressed(int)));
        QObject::connect(presets, SIGNAL(buttonReleased(int)), screen, SLOT(onButGroupReleased(int)));
        m_groups.append(presets);
    }
    // The footer shows through the preset pages.
    for (QScrollArea *area : {ui->scrollArea_tuner, ui->scrollArea_tuner_am}) {
        area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        area->viewport()->setAutoFillBackground(false);
        area->widget()->setAutoFillBackground(false);
    }
}

QButtonGroup *PresetPages::group(int band) const
{
    if (band < 0 || band >= m_groups.size()) {
        TUNER_WAR() << band << "has no preset page.";
        return nullptr;
    }
    return m_groups.at(band);
}

int PresetPages::litPreset(int band) const
{
    QButtonGroup *presets = group(band);
    return presets ? presets->checkedId() : -1;
}

QLabel *PresetPages::label(int band, int id) const
{
    if (band < 0 || band >= m_labels.size() || !validPreset(id))
        return nullptr;
    return m_labels.at(band).at(id);
}

void PresetPages::light(int band, int id)
{
    QButtonGroup *presets = group(band);
    if (!presets)
        return;
    presets->setExclusive(true);
    if (QAbstractButton *button = validPreset(id) ? presets->button(id) : nullptr)
        button->setChecked(true);
}

void PresetPages::unlight(int band)
{
    QButtonGroup *presets = group(band);
    if (!presets)
        return;
    presets->setExclusive(false);
    if (QAbstractButton *checked = presets->checkedButton())
        checked->setChecked(false);
    presets->setExclusive(true);
}

void PresetPages::setText(int band, int id, const QString &text, Qt::Alignment alignment)
{
    if (QLabel *preset = label(band, id)) {
        preset->setAlignment(alignment | Qt::AlignVCenter);
        preset->setText(text);
    }
}

void PresetPages::showFrequency(int band, int id, const QString &text)
{
    setText(band, id, text, Qt::AlignHCenter);
}

void PresetPages::showName(int band, int id, const QString &name)
{
    setText(band, id, name, Qt::AlignLeft);
}

void PresetPages::showFamily(bool fm)
{
    ui->scrollArea_tuner->setVisible(fm);
    ui->scrollArea_tuner_am->setVisible(!fm);
}

cm::ScrollManage *PresetPages::scroller(bool fm)
{
    cm::ScrollManage *&pages = fm ? m_fmScroller : m_amScroller;
    if (!pages) {
        pages = new cm::ScrollManage(fm ? ui->scrollArea_tuner : ui->scrollArea_tuner_am, m_screen);
        if (fm)
            QObject::connect(pages, SIGNAL(pageChanged(int)), m_screen, SLOT(onUpdateNavigationIcon_FM(int)));
        else
            QObject::connect(pages, SIGNAL(pageChanged(int)), m_screen, SLOT(onUpdateNavigationIcon_AM(int)));
        QObject::connect(pages, SIGNAL(stateChanged(QScroller::State)), m_screen,
                                       SLOT(onScrollerState(QScroller::State)));
    }
    return pages;
}

void PresetPages::scrollToBand(int band, bool animated)
{
    const bool fm = Preferences::isFmBand(band);
    scrollToPage(fm, fm ? band : band - BAND_AM1, animated);
}

void PresetPages::scrollToPage(bool fm, int page, bool animated)
{
    scroller(fm)->scrollToPage(page, animated);
}

// Every station report passes here: setting the image the indicator already
// shows would still repaint it and all beneath. Loading one by name costs a
// file-time lookup each time, and a preset step across bands changes it: each
// is loaded once.
void PresetPages::showPageImage(int band)
{
    if (band == m_pageImageBand || band < 0 || band >= int(std::size(kPageImages)))
        return;
    m_pageImageBand = band;
    QPixmap &image = m_pageImages[size_t(band)];
    if (image.isNull())
        image = QPixmap(QLatin1String(kPageImages[band]));
    ui->Icn_0067_page->setPixmap(image);
}

} // namespace tuner

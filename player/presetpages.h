#pragma once

#include "region.h"

#include <QList>
#include <QPixmap>
#include <Qt>

#include <array>

class QButtonGroup;
class QLabel;
class QString;
class QWidget;

namespace Ui {
class c20_003_tuner;
}

namespace cm {
class ScrollManage;
}

namespace tuner {

// The five preset pages of the tuner screen (FM1..FM3, AM1, AM2): which
// preset of a page is lit, what its labels show, the two scrolling families
// and the page indicator. The groups and scrollers are children of the screen
// and report to its slots.
class PresetPages
{
public:
    PresetPages(Ui::c20_003_tuner *ui, QWidget *screen);

    // The lit preset of a band's page, -1 for none.
    int litPreset(int band) const;
    void light(int band, int id);
    // An exclusive group cannot uncheck its last button: this goes through a
    // non-exclusive group.
    void unlight(int band);
    // A stored frequency sits in the centre of its preset, a station name to the left.
    void showFrequency(int band, int id, const QString &text);
    void showName(int band, int id, const QString &name);
    // Shows one family's pages and hides the other's.
    void showFamily(bool fm);
    void scrollToBand(int band, bool animated);
    // A page of one family's scroller, as the stored last band gives it.
    void scrollToPage(bool fm, int page, bool animated);
    void showPageImage(int band);

private:
    QButtonGroup *group(int band) const;   // null, with a warning, for no band
    QLabel *label(int band, int id) const; // null outside the pages
    void setText(int band, int id, const QString &text, Qt::Alignment alignment);
    cm::ScrollManage *scroller(bool fm);

    Ui::c20_003_tuner *ui;
    QWidget *m_screen;
    QList<QButtonGroup *> m_groups;
    QList<QList<QLabel *>> m_labels;
    cm::ScrollManage *m_fmScroller = nullptr;
    cm::ScrollManage *m_amScroller = nullptr;
    int m_pageImageBand = -1; // the form starts with no band's indicator set by us
    std::array<QPixmap, kBandCount> m_pageImages;
};

} // namespace tuner

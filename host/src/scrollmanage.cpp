#include "scrollmanage.h"

#include "scrollersetup.h"

#include <QEvent>
#include <QScrollArea>
#include <QScrollBar>

namespace cm {

namespace {
constexpr int kPageScrollMs = 300;
}

ScrollManage::ScrollManage(QScrollArea *area, QObject *parent)
    : QObject(parent)
    , m_area(area)
{
    if (!m_area)
        return;
    QWidget *viewport = m_area->viewport();
    QScroller::grabGesture(viewport, QScroller::LeftMouseButtonGesture);
    m_scroller = touchScroller(viewport, true);

    connect(m_scroller, &QScroller::stateChanged, this, &ScrollManage::onScrollerStateChanged);
    m_filtered = m_area;
    m_area->installEventFilter(this);
    updateSnapPoints();
    m_page = restingPage();
}

int ScrollManage::pageWidth() const
{
    return m_area ? qMax(1, m_area->viewport()->width()) : 1;
}

int ScrollManage::pageCount() const
{
    if (!m_area || !m_area->widget())
        return 0;
    return qMax(1, (m_area->widget()->width() + pageWidth() - 1) / pageWidth());
}

int ScrollManage::restingPage() const
{
    if (!m_area)
        return 0;
    const int x = m_area->horizontalScrollBar()->value();
    return qBound(0, (x + pageWidth() / 2) / pageWidth(), qMax(0, pageCount() - 1));
}

void ScrollManage::updateSnapPoints()
{
    if (m_scroller)
        m_scroller->setSnapPositionsX(0, pageWidth());
}

// A requested page is reported at once, even the page already shown: the
// caller's page handler is what makes the band current.
void ScrollManage::scrollToPage(int page, bool animated)
{
    if (!m_area || !m_scroller)
        return;
    page = qBound(0, page, qMax(0, pageCount() - 1));
    m_page = page;
    emit pageChanged(page);
    const QPointF target(page * pageWidth(), 0);
    if (animated && m_area->horizontalScrollBar()->value() != int(target.x())) {
        m_scroller->scrollTo(target, kPageScrollMs);
        return;
    }
    m_scroller->stop();
    m_area->horizontalScrollBar()->setValue(int(target.x()));
}

void ScrollManage::onScrollerStateChanged(QScroller::State state)
{
    emit stateChanged(state);
    if (state == QScroller::Inactive)
        settle();
}

void ScrollManage::settle()
{
    const int page = restingPage();
    if (page == m_page)
        return;
    m_page = page;
    emit pageChanged(page);
}

bool ScrollManage::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_filtered && event->type() == QEvent::Resize && !m_area.isNull()) {
        updateSnapPoints();
        if (m_scroller && m_scroller->state() == QScroller::Inactive)
            m_area->horizontalScrollBar()->setValue(m_page * pageWidth());
    }
    return QObject::eventFilter(watched, event);
}

} // namespace cm

#include "listviewscroller.h"

#include <QItemSelectionModel>
#include <QListView>
#include <QMouseEvent>
#include <QScrollerProperties>

namespace cm {

ListviewScroller::ListviewScroller(QListView *view, QObject *parent)
    : QObject(parent)
    , m_view(view)
{
    if (!m_view)
        return;
    m_view->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    QWidget *viewport = m_view->viewport();
    QScroller::grabGesture(viewport, QScroller::LeftMouseButtonGesture);
    m_scroller = QScroller::scroller(viewport);

    QScrollerProperties properties = m_scroller->scrollerProperties();
    properties.setScrollMetric(QScrollerProperties::HorizontalOvershootPolicy,
                               QVariant::fromValue(QScrollerProperties::OvershootAlwaysOff));
    properties.setScrollMetric(QScrollerProperties::MousePressEventDelay, 0);
    m_scroller->setScrollerProperties(properties);

    connect(m_scroller, &QScroller::stateChanged, this, &ListviewScroller::onScrollerStateChanged);
    m_filtered = viewport;
    viewport->installEventFilter(this);
}

void ListviewScroller::setSelectModel(QItemSelectionModel *model)
{
    m_selection = model;
}

void ListviewScroller::setItemHeight(int height)
{
    m_itemHeight = qMax(0, height);
    updateSnapPoints();
}

void ListviewScroller::updateSnapPoints()
{
    if (m_scroller && m_itemHeight > 0)
        m_scroller->setSnapPositionsY(0, m_itemHeight);
}

void ListviewScroller::onScrollerStateChanged(QScroller::State state)
{
    if (state == QScroller::Dragging || state == QScroller::Scrolling)
        m_dragged = true;
    emit stateChanged(state);
}

bool ListviewScroller::eventFilter(QObject *watched, QEvent *event)
{
    // Only presses and releases need the view; other events also arrive
    // while the view is being destroyed, when it must not be touched.
    const bool press = event->type() == QEvent::MouseButtonPress;
    const bool release = event->type() == QEvent::MouseButtonRelease;
    if (watched != m_filtered || (!press && !release) || m_view.isNull())
        return QObject::eventFilter(watched, event);

    if (press) {
        auto *mouse = static_cast<QMouseEvent *>(event);
        m_pressIndex = m_view->indexAt(mouse->pos());
        m_dragged = false;
    } else {
        auto *mouse = static_cast<QMouseEvent *>(event);
        const QModelIndex index = m_view->indexAt(mouse->pos());
        const bool tap = !m_dragged && index.isValid() && index == m_pressIndex;
        m_pressIndex = QPersistentModelIndex();
        if (tap) {
            if (m_selection)
                m_selection->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect);
            emit clicked(index);
        }
    }
    return QObject::eventFilter(watched, event);
}

} // namespace cm

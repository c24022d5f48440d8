#include "listviewscroller.h"

#include "scrollersetup.h"

#include <QItemSelectionModel>
#include <QListView>
#include <QMouseEvent>

namespace cm {

ListviewScroller::ListviewScroller(QListView *view, QObject *parent)
    : QObject(parent)
    , m_view(view)
{
    if (!m_view)
        return;
    m_view->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    QWidget *viewport = m_view->viewport();
    // Fed from the viewport's mouse events below rather than grabGesture():
    // Qt never frees the gesture recognizer that each grab registers, and a
    // list is built anew every time its screen is shown.
    m_scroller = touchScroller(viewport, false);
    // Real time, not the events' own stamps: a finger resting before it lifts
    // must not fling the list.
    m_clock.start();

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
    // Only mouse events need the view; other events also arrive while the
    // view is being destroyed, when it must not be touched.
    const QEvent::Type type = event->type();
    const bool press = type == QEvent::MouseButtonPress;
    const bool move = type == QEvent::MouseMove;
    const bool release = type == QEvent::MouseButtonRelease;
    if (watched != m_filtered || (!press && !move && !release) || m_view.isNull())
        return QObject::eventFilter(watched, event);

    auto *mouse = static_cast<QMouseEvent *>(event);
    if (press && mouse->button() == Qt::LeftButton) {
        m_pressIndex = m_view->indexAt(mouse->pos());
        m_dragged = false;
        m_scroller->handleInput(QScroller::InputPress, mouse->localPos(), m_clock.elapsed());
    } else if (move && (mouse->buttons() & Qt::LeftButton)) {
        m_scroller->handleInput(QScroller::InputMove, mouse->localPos(), m_clock.elapsed());
        // A drag moves the list, not the selection.
        if (m_dragged)
            return true;
    } else if (release && mouse->button() == Qt::LeftButton) {
        m_scroller->handleInput(QScroller::InputRelease, mouse->localPos(), m_clock.elapsed());
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

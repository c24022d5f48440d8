#pragma once

#include <QElapsedTimer>
#include <QModelIndex>
#include <QObject>
#include <QPointer>
#include <QScroller>

class QItemSelectionModel;
class QListView;

namespace cm {

// Touch scrolling for a list view. A tap that does not turn into a drag is
// reported as clicked(index) and selects the row in the selection model.
class ListviewScroller : public QObject
{
    Q_OBJECT
public:
    explicit ListviewScroller(QListView *view, QObject *parent = nullptr);

    void setSelectModel(QItemSelectionModel *model);
    void setItemHeight(int height);
    int itemHeight() const { return m_itemHeight; }
    QScroller *scroller() const { return m_scroller; }

signals:
    void clicked(const QModelIndex &index);
    void stateChanged(QScroller::State state);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void onScrollerStateChanged(QScroller::State state);
    void updateSnapPoints();

    QPointer<QListView> m_view;
    QObject *m_filtered = nullptr; // the viewport, compared as a QObject
    QPointer<QItemSelectionModel> m_selection;
    QScroller *m_scroller = nullptr;
    QPersistentModelIndex m_pressIndex;
    bool m_dragged = false;
    int m_itemHeight = 0;
    QElapsedTimer m_clock;
};

} // namespace cm

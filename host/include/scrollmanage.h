#pragma once

#include <QObject>
#include <QPointer>
#include <QScroller>

class QScrollArea;

namespace cm {

// Paged horizontal scrolling of a scroll area whose contents are a whole
// number of viewport widths. Touch drags snap to pages.
class ScrollManage : public QObject
{
    Q_OBJECT
public:
    explicit ScrollManage(QScrollArea *area, QObject *parent = nullptr);

    void scrollToPage(int page, bool animated = true);
    int currentPage() const { return m_page; }
    int pageCount() const;
    QScroller *scroller() const { return m_scroller; }

signals:
    // A page was requested with scrollToPage() (reported at once), or a drag
    // came to rest on another page.
    void pageChanged(int page);
    void stateChanged(QScroller::State state);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void onScrollerStateChanged(QScroller::State state);
    void updateSnapPoints();
    int pageWidth() const;
    int restingPage() const;
    void settle();

    QPointer<QScrollArea> m_area;
    // The filtered object, compared as a QObject: its last events arrive
    // while it is being destroyed, when it is no scroll area any more.
    QObject *m_filtered = nullptr;
    QScroller *m_scroller = nullptr;
    int m_page = 0;
};

} // namespace cm

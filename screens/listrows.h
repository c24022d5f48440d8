#pragma once

#include <QItemDelegate>

class QListView;
class QScrollBar;

namespace tuner {

// Item-model roles shared by the list screens.
enum ListRole {
    RoleCurrentValue = 4,     // the value text on the right of a row
    RoleItemId = 257,         // option item or PTY code
    RoleSetHighlighted = 258, // PTY list: mark the received type
    RoleSetSelected = 259,    // PTY list: mark the tapped type
    RoleCheckPixmap = 357,    // path of a check mark image
};

// The painting steps both list screens share: background, pressed row,
// decoration, title and current value in the row's colour group, and the
// row height. Each screen's delegate places the parts and the check mark.
class RowDelegate : public QItemDelegate
{
    Q_OBJECT
public:
    enum Layout { CheckLeft = 0, CheckRight = 1 };

    explicit RowDelegate(QObject *parent = nullptr);

    void setHeight(int height) { m_height = height; }
    void setCheckIconLayout(Layout layout) { m_layout = layout; }
    void setColorGroup(const QString &group) { m_group = group; }

    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;

protected:
    void drawBackground(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const;
    void drawFocus(QPainter *painter, const QStyleOptionViewItem &option, const QRect &rect) const override;
    void drawDecoration(QPainter *painter, const QStyleOptionViewItem &option, const QRect &rect,
                        const QPixmap &pixmap) const override;
    void drawDisplay(QPainter *painter, const QStyleOptionViewItem &option, const QRect &rect, const QString &text,
                     Qt::CheckState state, Qt::ItemFlags flags) const;
    void drawCurrent(QPainter *painter, const QStyleOptionViewItem &option, const QRect &rect, const QString &text,
                     Qt::CheckState state, Qt::ItemFlags flags) const;

    // Draws a row's parts in order, once the delegate has placed them.
    struct Parts
    {
        QRect check;
        QPixmap decoration;
        QRect decorationRect;
        QRect text;
        Qt::CheckState checkState;
    };
    void drawParts(QPainter *painter, const QStyleOptionViewItem &opt, const QModelIndex &index,
                   const Parts &parts) const;

    // The parts of a row the delegates compute alike.
    static QPixmap pixmapOf(const QModelIndex &index, int role);
    static Qt::CheckState checkStateOf(const QModelIndex &index);
    // False (and a warning) for an invalid index, which is not painted.
    static bool paintable(const QModelIndex &index);

    Layout m_layout = CheckLeft;
    int m_height = 70;
    QString m_group;

private:
    using QItemDelegate::drawDisplay;
    void drawText(QPainter *painter, const QStyleOptionViewItem &option, const QRect &rect, const QString &text,
                  Qt::CheckState state, Qt::ItemFlags flags, Qt::Alignment horizontal) const;
};

// Lets a list scroll with a scroll bar of the form that stays a widget of
// its own, at its own place on the screen.
void useSeparateScrollBar(QListView *list, QScrollBar *bar, QWidget *owner);

} // namespace tuner

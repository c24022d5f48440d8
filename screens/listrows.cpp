#include "listrows.h"

#include "colorcontrol.h"
#include "tunerlog.h"

#include <QListView>
#include <QPainter>
#include <QPixmap>
#include <QScrollBar>

namespace tuner {

RowDelegate::RowDelegate(QObject *parent)
    : QItemDelegate(parent)
{}

QSize RowDelegate::sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    if (m_height >= 1)
        return QSize(option.rect.right() - option.rect.left(), m_height);
    const QVariant hint = index.data(Qt::SizeHintRole);
    return hint.isValid() ? hint.toSize() : QItemDelegate::sizeHint(option, index);
}

void RowDelegate::drawBackground(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &) const
{
    painter->drawPixmap(option.rect, QPixmap(QStringLiteral(":/Resource/common/Key_C005_item_n.png")));
}

void RowDelegate::drawFocus(QPainter *painter, const QStyleOptionViewItem &option, const QRect &rect) const
{
    if (option.state & QStyle::State_Selected)
        painter->drawPixmap(rect, QPixmap(QStringLiteral(":/Resource/common/Key_C005_item_p.png")));
}

void RowDelegate::drawDecoration(QPainter *painter, const QStyleOptionViewItem &, const QRect &rect,
                                 const QPixmap &pixmap) const
{
    painter->drawPixmap(rect, pixmap);
}

void RowDelegate::drawDisplay(QPainter *painter, const QStyleOptionViewItem &option, const QRect &rect,
                              const QString &text, Qt::CheckState state, Qt::ItemFlags flags) const
{
    drawText(painter, option, rect, text, state, flags, Qt::AlignLeft);
}

void RowDelegate::drawCurrent(QPainter *painter, const QStyleOptionViewItem &option, const QRect &rect,
                              const QString &text, Qt::CheckState state, Qt::ItemFlags flags) const
{
    drawText(painter, option, rect, text, state, flags, Qt::AlignRight);
}

// Colour state: 2 disabled (neither selectable nor editable), 1 selected,
// 3 checked, 0 normal.
void RowDelegate::drawText(QPainter *painter, const QStyleOptionViewItem &option, const QRect &rect,
                           const QString &text, Qt::CheckState state, Qt::ItemFlags flags,
                           Qt::Alignment horizontal) const
{
    if (text.isEmpty() || !rect.isValid())
        return;
    int colourState = ColorGroup::Normal;
    if (!(flags & (Qt::ItemIsSelectable | Qt::ItemIsEditable)))
        colourState = ColorGroup::Disabled;
    else if (option.state & QStyle::State_Selected)
        colourState = ColorGroup::Pressed;
    else if (state == Qt::Checked)
        colourState = ColorGroup::Checked;
    QFont font = painter->font();
    const QColor colour
        = ColorGroup::setFontColor(font, m_group.isEmpty() ? QStringLiteral("ColorGroup1") : m_group, 30, colourState);
    painter->setFont(font);
    painter->setPen(colour);
    painter->drawText(rect, int(horizontal | Qt::AlignVCenter), text);
}

void RowDelegate::drawParts(QPainter *painter, const QStyleOptionViewItem &opt, const QModelIndex &index,
                            const Parts &parts) const
{
    drawBackground(painter, opt, index);
    drawFocus(painter, opt, opt.rect);
    drawCheck(painter, opt, parts.check, parts.checkState);
    if (!parts.decoration.isNull())
        drawDecoration(painter, opt, parts.decorationRect, parts.decoration);
    drawDisplay(painter, opt, parts.text, index.data(Qt::DisplayRole).toString(), parts.checkState, index.flags());
    drawCurrent(painter, opt, opt.rect.adjusted(0, 0, -20, 0), index.data(RoleCurrentValue).toString(),
                parts.checkState, index.flags());
}

QPixmap RowDelegate::pixmapOf(const QModelIndex &index, int role)
{
    const QString path = index.data(role).toString();
    return path.isEmpty() ? QPixmap() : QPixmap(path);
}

Qt::CheckState RowDelegate::checkStateOf(const QModelIndex &index)
{
    return index.data(Qt::CheckStateRole).toInt() < 1 ? Qt::Unchecked : Qt::Checked;
}

bool RowDelegate::paintable(const QModelIndex &index)
{
    if (!index.isValid())
        TUNER_WAR() << "index.isValid() failed, row not painted.";
    return index.isValid();
}

void useSeparateScrollBar(QListView *list, QScrollBar *bar, QWidget *owner)
{
    const QRect geometry = bar->geometry();
    list->setVerticalScrollBar(bar);
    bar->setParent(owner);
    bar->setGeometry(geometry);
    bar->show();
    list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    list->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    bar->setAttribute(Qt::WA_OpaquePaintEvent, false);
    list->viewport()->setAutoFillBackground(false);
}

} // namespace tuner

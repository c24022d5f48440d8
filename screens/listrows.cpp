#include "listrows.h"

#include "colorcontrol.h"

#include <QModelIndex>
#include <QPainter>
#include <QPixmap>
#include <QStyleOptionViewItem>

namespace tuner::listrows {

int textState(const QStyleOptionViewItem &option, Qt::ItemFlags flags, bool checked)
{
    if (!(flags & (Qt::ItemIsSelectable | Qt::ItemIsEditable)))
        return ColorGroup::Disabled;
    if (option.state & QStyle::State_Selected)
        return ColorGroup::Pressed;
    return checked ? ColorGroup::Checked : ColorGroup::Normal;
}

void drawText(QPainter *painter, const QRect &rect, const QString &text, const QString &group, int state,
              Qt::Alignment horizontal)
{
    if (text.isEmpty() || !rect.isValid())
        return;
    QFont font = painter->font();
    const QColor colour = ColorGroup::setFontColor(font, group.isEmpty() ? QStringLiteral("ColorGroup1") : group, 30, state);
    painter->setFont(font);
    painter->setPen(colour);
    painter->drawText(rect, int(horizontal | Qt::AlignVCenter), text);
}

void drawImage(QPainter *painter, const QRect &rect, const char *path)
{
    painter->drawPixmap(rect, QPixmap(QLatin1String(path)));
}

} // namespace tuner::listrows

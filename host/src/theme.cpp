#include "theme.h"

#include "colorcontrol.h"

#include <QApplication>
#include <QPainter>
#include <QProxyStyle>
#include <QStyleFactory>
#include <QStyleOptionButton>
#include <QWidget>

namespace cm {

namespace {

class ThemeStyle : public QProxyStyle
{
public:
    ThemeStyle()
        : QProxyStyle(QStyleFactory::create(QStringLiteral("Fusion")))
    {}

    void drawControl(ControlElement element, const QStyleOption *option, QPainter *painter,
                     const QWidget *widget) const override
    {
        const auto *button = qstyleoption_cast<const QStyleOptionButton *>(option);
        if (element == CE_PushButton && button && (button->features & QStyleOptionButton::Flat)
            && !button->icon.isNull()) {
            const QIcon::Mode mode = !(button->state & State_Enabled) ? QIcon::Disabled
                                     : (button->state & State_Sunken) ? QIcon::Selected
                                                                      : QIcon::Normal;
            const QIcon::State state = (button->state & State_On) ? QIcon::On : QIcon::Off;
            const QPixmap pixmap = button->icon.pixmap(button->iconSize, mode, state);
            const QRect target = QStyle::alignedRect(button->direction, Qt::AlignCenter,
                                                     pixmap.size() / pixmap.devicePixelRatio(), button->rect);
            painter->drawPixmap(target, pixmap);
            if (!button->text.isEmpty()) {
                painter->setPen(ColorGroup::color(QStringLiteral("ColorGroup1"), 0));
                painter->drawText(button->rect, Qt::AlignCenter, button->text);
            }
            return;
        }
        QProxyStyle::drawControl(element, option, painter, widget);
    }
};

} // namespace

QString digitFontFamily()
{
    return QStringLiteral("DejaVu Sans Condensed");
}

QFont digitFont(int pointSize)
{
    QFont font(digitFontFamily());
    font.setPixelSize(qMax(1, pointSize));
    return font;
}

void usePanelFontSizes(QWidget *root)
{
    if (!root)
        return;
    QList<QWidget *> widgets = root->findChildren<QWidget *>();
    widgets.prepend(root);
    for (QWidget *widget : qAsConst(widgets)) {
        QFont font = widget->font();
        if (font.pointSize() > 0) {
            font.setPixelSize(font.pointSize());
            widget->setFont(font);
        }
    }
}

void applyTheme(QApplication &app)
{
    app.setStyle(new ThemeStyle);
    QPalette palette = app.palette();
    palette.setColor(QPalette::Window, QColor(0x0d, 0x11, 0x17));
    palette.setColor(QPalette::Base, QColor(0x0d, 0x11, 0x17));
    palette.setColor(QPalette::Button, QColor(0x22, 0x2a, 0x33));
    const QColor text = ColorGroup::color(QStringLiteral("ColorGroup1"), ColorGroup::Normal);
    palette.setColor(QPalette::WindowText, text);
    palette.setColor(QPalette::Text, text);
    palette.setColor(QPalette::ButtonText, text);
    palette.setColor(QPalette::Highlight, QColor(0xff, 0xb0, 0x3b));
    app.setPalette(palette);
}

} // namespace cm

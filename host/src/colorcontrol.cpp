#include "colorcontrol.h"

#include <QAbstractButton>
#include <QEvent>
#include <QFont>
#include <QHash>
#include <QPalette>
#include <QVariant>
#include <QWidget>

namespace {

struct Palette
{
    QColor normal, pressed, disabled, checked;
};

const QHash<QString, Palette> &groups()
{
    static const QHash<QString, Palette> table = {
        // Captions and labels: white on the dark theme, amber when pressed or lit.
        {QStringLiteral("ColorGroup1"),
         {QColor(0xf2, 0xf2, 0xf2), QColor(0xff, 0xb0, 0x3b), QColor(0x6e, 0x6e, 0x6e), QColor(0xff, 0xb0, 0x3b)}},
        // Secondary texts (descriptions, status lines).
        {QStringLiteral("Description"),
         {QColor(0xa8, 0xb3, 0xbd), QColor(0xff, 0xb0, 0x3b), QColor(0x5a, 0x5a, 0x5a), QColor(0xd8, 0xe0, 0xe6)}},
    };
    return table;
}

} // namespace

QColor ColorGroup::color(const QString &group, int state)
{
    const auto it = groups().constFind(group);
    const Palette &p = it != groups().constEnd() ? *it : groups()[QStringLiteral("ColorGroup1")];
    switch (state) {
    case Pressed:
        return p.pressed;
    case Disabled:
        return p.disabled;
    case Checked:
        return p.checked;
    default:
        return p.normal;
    }
}

QColor ColorGroup::setFontColor(QFont &font, const QString &group, int size, int state)
{
    if (size > 0)
        font.setPixelSize(size);
    return color(group, state);
}

// Forms name the group in a "colorGroup" property or in the accessible description.
QString ColorGroup::groupOf(const QWidget *widget)
{
    if (!widget)
        return QStringLiteral("ColorGroup1");
    QString group = widget->property("colorGroup").toString();
    if (group.isEmpty() && groups().contains(widget->accessibleDescription()))
        group = widget->accessibleDescription();
    return group.isEmpty() ? QStringLiteral("ColorGroup1") : group;
}

void ColorGroup::apply(QWidget *widget, int state)
{
    if (!widget)
        return;
    QPalette palette = widget->palette();
    const QColor c = color(groupOf(widget), state);
    palette.setColor(QPalette::WindowText, c);
    palette.setColor(QPalette::ButtonText, c);
    palette.setColor(QPalette::Text, c);
    widget->setPalette(palette);
}

namespace cm {

ColorControl::ColorControl(QWidget *button, QWidget *label, QObject *parent)
    : QObject(parent ? parent : button)
    , m_button(button)
    , m_label(label)
{
    if (auto *b = qobject_cast<QAbstractButton *>(m_button.data()))
        connect(b, &QAbstractButton::toggled, this, &ColorControl::refresh);
    if (m_button)
        m_button->installEventFilter(this);
    refresh();
}

void ColorControl::setDescription(QWidget *label)
{
    if (!label)
        return;
    label->setProperty("colorGroup", QStringLiteral("Description"));
    ColorGroup::apply(label, ColorGroup::Normal);
}

void ColorControl::refresh()
{
    if (!m_label || !m_button)
        return;
    int state = ColorGroup::Normal;
    auto *b = qobject_cast<QAbstractButton *>(m_button.data());
    if (!m_button->isEnabled())
        state = ColorGroup::Disabled;
    else if (m_pressed || (b && b->isDown()))
        state = ColorGroup::Pressed;
    else if (b && b->isChecked())
        state = ColorGroup::Checked;
    ColorGroup::apply(m_label, state);
}

bool ColorControl::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_button) {
        switch (event->type()) {
        case QEvent::MouseButtonPress:
            m_pressed = true;
            refresh();
            break;
        case QEvent::MouseButtonRelease:
        case QEvent::Leave:
        case QEvent::Hide:
            m_pressed = false;
            refresh();
            break;
        case QEvent::EnabledChange:
            refresh();
            break;
        default:
            break;
        }
    }
    return QObject::eventFilter(watched, event);
}

} // namespace cm

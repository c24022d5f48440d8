#pragma once

#include <QColor>
#include <QObject>
#include <QPointer>

class QFont;
class QWidget;

// Named colour groups of the head unit's theme. States: 0 normal, 1 pressed
// or selected, 2 disabled, 3 checked.
class ColorGroup
{
public:
    enum State { Normal = 0, Pressed = 1, Disabled = 2, Checked = 3 };

    // Sets the font's pixel size and returns the group's colour for the state.
    static QColor setFontColor(QFont &font, const QString &group, int size, int state);
    static QColor color(const QString &group, int state);
    // The group a widget carries ("colorGroup" property or accessible
    // description; "ColorGroup1" if none).
    static QString groupOf(const QWidget *widget);
    // Paints the widget's text in its group's colour for the state.
    static void apply(QWidget *widget, int state);
};

namespace cm {

// Keeps a caption's colour in step with its button: normal, pressed, checked,
// disabled.
class ColorControl : public QObject
{
    Q_OBJECT
public:
    ColorControl(QWidget *button, QWidget *label, QObject *parent = nullptr);

    // Gives a secondary text its description colour.
    static void setDescription(QWidget *label);

    void refresh();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QPointer<QWidget> m_button;
    QPointer<QWidget> m_label;
    bool m_pressed = false;
};

} // namespace cm

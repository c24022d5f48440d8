// Start-up baseline: the least a Qt Widgets program does to show an 800 x 480
// window with the tuner's fonts and save its first frame as a PNG.
//
//   nilo-bench-bare-window FILE

#include <QApplication>
#include <QLabel>
#include <QTimer>
#include <QWidget>

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    if (argc < 2)
        return 2;
    const QString file = QString::fromLocal8Bit(argv[1]);

    QWidget window;
    window.setFixedSize(800, 480);
    // The two families the tuner screen draws with.
    auto *digits = new QLabel(QStringLiteral("87.50 MHz"), &window);
    digits->setFont(QFont(QStringLiteral("DejaVu Sans Condensed"), 60));
    digits->setGeometry(200, 180, 400, 100);
    auto *text = new QLabel(QStringLiteral("FM1"), &window);
    text->setGeometry(20, 20, 160, 40);
    window.show();

    QTimer::singleShot(0, &app, [&] { app.exit(window.grab().save(file, "PNG") ? 0 : 1); });
    return app.exec();
}

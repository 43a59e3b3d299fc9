// What the launcher's start is compared with: one window of its size and one line edit, and nothing else.
#include <QApplication>
#include <QLineEdit>
#include <QScreen>
#include <QWidget>

int main(int count, char **arguments) {
    const QApplication application(count, arguments);
    QWidget window;
    QLineEdit edit(&window);
    edit.setGeometry(80, 139, 746, 24);
    window.setFixedSize(1220, 820);
    window.move(QApplication::primaryScreen()->geometry().center() - window.rect().center());
    window.show();
    return QApplication::exec();
}

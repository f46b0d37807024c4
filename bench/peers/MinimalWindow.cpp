#include <QApplication>
#include <QLabel>

/// The least that shows something.
int main(int argumentCount, char** arguments) {
    const QApplication application(argumentCount, arguments);
    QLabel label("Hello");
    label.show();
    return QApplication::exec();
}

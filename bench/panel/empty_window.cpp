#include <QApplication>
#include <QWidget>

#include "EndAtPaint.h"

// The least that a program with a window does.
int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    QWidget window;
    bench::EndAtPaint end;
    window.installEventFilter(&end);
    window.resize(860, 620);
    window.show();
    return QApplication::exec();
}

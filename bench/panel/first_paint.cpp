#include "EndAtPaint.h"
#include "qt/host/PanelApplication.h"
#include "qt/host/PanelHost.h"

// The panel as it starts, up to its first painted frame.
int main(int argc, char** argv) {
    const orv::PanelApplication application(argc, argv);
    orv::PanelHost host(application.bundle(), application.appearance());
    bench::EndAtPaint end;
    host.setWindowMade([&end](QWidget& window) { window.installEventFilter(&end); });
    host.start([] {});
    return QApplication::exec();
}

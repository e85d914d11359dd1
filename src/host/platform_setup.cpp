#include "host/platform_setup.h"

#include <QCoreApplication>

void SetUpPlatform() {
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    // All frames are painted by the processor. Under X the toolkit would still load OpenGL for the first
    // window, which takes a third of the time to the first frame and half of the memory.
    if (const char* variable = "QT_XCB_GL_INTEGRATION"; !qEnvironmentVariableIsSet(variable))
        qputenv(variable, "none");
}

#include "TemporaryFolder.h"

#include <QApplication>

#include <gtest/gtest.h>

// What Qt and its font libraries keep to the end isn't ours to free. Read by AddressSanitizer, where a build has it;
// the variable below is for programs that a test starts.
extern "C" const char* __asan_default_options() {
    return "detect_leaks=0";
}

// A QApplication for GoogleTest, without a screen. Whatever a test does, it can't reach the home of who runs it.
int main(int argc, char** argv) {
    const TemporaryFolder home;
    const QByteArray path = QByteArray::fromStdString(home.path().string());
    qputenv("HOME", path);
    qputenv("XDG_CONFIG_HOME", path + "/.config");
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("ASAN_OPTIONS", __asan_default_options());
    const QApplication application(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}

#include <gtest/gtest.h>

#include <QApplication>

/// What the toolkit itself leaks; read by the leak checker of the address sanitiser.
extern "C" const char* __lsan_default_suppressions() {
    return "leak:QScroller::grabGesture\n";
}

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}

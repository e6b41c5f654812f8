#pragma once
// The one QApplication of a windowed test program, created on first use on
// the offscreen platform (unless QT_QPA_PLATFORM names another), so that
// listing the tests needs no display.

#include <gtest/gtest.h>

class QApplication;

QApplication& QzTestApplication();

// Base of windowed test suites: the application exists before any test.
class TQzGuiTest : public ::testing::Test {
protected:
    static void SetUpTestSuite() { QzTestApplication(); }
};

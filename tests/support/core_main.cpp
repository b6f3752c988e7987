#include <gtest/gtest.h>

#include <QCoreApplication>

int main(int argc, char** argv) {
    const QCoreApplication app(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    GTEST_FLAG_SET(shuffle, true);
    return RUN_ALL_TESTS();
}

#include <memory>

#include <QApplication>

#include <gtest/gtest.h>

// Gives every test program that this file is part of the application object that widgets need.
namespace tarragon {

namespace {

class QtEnvironment : public testing::Environment {
public:
    void SetUp() override { _application = std::make_unique<QApplication>(_argumentCount, _arguments); }
    void TearDown() override { _application.reset(); }

private:
    int _argumentCount = 1;
    char _name[5] = "unit";
    char* _arguments[2] = {_name, nullptr};
    std::unique_ptr<QApplication> _application;
};

[[maybe_unused]] const auto* const environment = testing::AddGlobalTestEnvironment(new QtEnvironment);

} // namespace

} // namespace tarragon

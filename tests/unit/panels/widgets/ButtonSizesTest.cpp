#include "panels/widgets/ButtonSizes.h"

#include <gtest/gtest.h>

#include <string>

#include <QApplication>

namespace tarragon {
namespace {

class ButtonSizesTest : public testing::Test {
protected:
    ~ButtonSizesTest() override { QApplication::setFont(_font, "QMenuBar"); }

    static ButtonContent button(const std::string& title) {
        ButtonContent content;
        content.title = title;
        return content;
    }
    // True when the button was measured for the answer.
    bool isMeasured(const ButtonContent& content, double widestTitle = 500) {
        const int before = measurements;
        EXPECT_EQ(sizes.sizeThatFits(content, widestTitle), (Size{double(content.title.size()), widestTitle}));
        return measurements > before;
    }

    int measurements = 0;
    ButtonSizes sizes{[this](const ButtonContent& content, double widestTitle) {
        ++measurements;
        return Size{double(content.title.size()), widestTitle};
    }};

private:
    QFont _font = QApplication::font("QMenuBar");
};

TEST_F(ButtonSizesTest, MeasuresEachButtonOnce) {
    EXPECT_TRUE(isMeasured(button("File")));
    EXPECT_TRUE(isMeasured(button("Edit")));
    EXPECT_FALSE(isMeasured(button("File")));
    EXPECT_FALSE(isMeasured(button("Edit")));
}

TEST_F(ButtonSizesTest, MeasuresNothingForWhereAButtonIsAndWhetherItIsPointedAtOrPressed) {
    ButtonContent content = button("File");
    EXPECT_TRUE(isMeasured(content));
    content.frame = {{10, 0}, {40, 18}};
    content.highlighted = true;
    content.mouseIsOver = true;
    EXPECT_FALSE(isMeasured(content));
}

TEST_F(ButtonSizesTest, MeasuresAnotherFontLookOrDressOfAButton) {
    ButtonContent content = button("File");
    EXPECT_TRUE(isMeasured(content));
    content.font.pointSize = 20;
    EXPECT_TRUE(isMeasured(content));
    content.font.bold = true;
    EXPECT_TRUE(isMeasured(content));
    content.look = ButtonLook::ScreenTopBar;
    EXPECT_TRUE(isMeasured(content));
    content.dress.bordered = !content.dress.bordered;
    EXPECT_TRUE(isMeasured(content));
    EXPECT_FALSE(isMeasured(content));
    EXPECT_FALSE(isMeasured(button("File")));
}

TEST_F(ButtonSizesTest, MeasuresAllAgainInAnotherFontOfTheDesktop) {
    EXPECT_TRUE(isMeasured(button("File")));
    QFont font = QApplication::font("QMenuBar");
    font.setPixelSize(31);
    QApplication::setFont(font, "QMenuBar");
    EXPECT_TRUE(isMeasured(button("File")));
    EXPECT_FALSE(isMeasured(button("File")));
}

TEST_F(ButtonSizesTest, MeasuresAllAgainWhenFontsAreInstalled) {
    EXPECT_TRUE(isMeasured(button("File")));
    emit qGuiApp->fontDatabaseChanged();
    EXPECT_TRUE(isMeasured(button("File")));
}

TEST_F(ButtonSizesTest, MeasuresAllAgainForAnotherWidestTitle) {
    EXPECT_TRUE(isMeasured(button("File"), 500));
    EXPECT_TRUE(isMeasured(button("File"), 400));
    EXPECT_TRUE(isMeasured(button("File"), 500));
}

TEST_F(ButtonSizesTest, ForgetsRatherThanGrowWithoutEnd) {
    EXPECT_TRUE(isMeasured(button("File")));
    for (int title = 0; title < 2000; ++title)
        EXPECT_TRUE(isMeasured(button("Title " + std::to_string(title))));
    EXPECT_TRUE(isMeasured(button("File")));
}

} // namespace
} // namespace tarragon

#include "PreferencesWindowFixture.h"
#include "TextRoom.h"
#include "platform/qt/QtTexts.h"

#include <QKeySequence>
#include <QScrollArea>
#include <QStackedWidget>

#include <map>

namespace tarragon {
namespace {

// The window in a language of the program, with all its notices.
class PreferencesLanguagesTest : public PreferencesWindowTest, public testing::WithParamInterface<const char*> {
protected:
    PreferencesLanguagesTest()
        : _font(QApplication::font())
        , _texts(":/translations/tarragon_linux.qm", {GetParam()}) {
        webPages = {"https://p", "https://s", "https://t", "https://f"};
    }
    ~PreferencesLanguagesTest() override { QApplication::setFont(_font); }

    void setFontSize(int points) {
        QFont font = _font;
        font.setPointSize(points);
        QApplication::setFont(font);
    }
    void showWithNotices() {
        controller().displayWindow();
        window().setHotKeyRefusal(HotKeyRefusal{"Ctrl+Alt+Shift+Space", "Ctrl+Alt+Super+Space"});
        window().setBorderNotice(BorderNotice::AccessIsMissing);
        window().setHideHotKeyWarning(false);
        window().setHideButtonWarning(false);
    }
    QWidget& showPane(std::size_t which) {
        selectPane(static_cast<PreferencePane>(which));
        // A layout that has changed has the one around it change in turn.
        constexpr int Depth = 8;
        for (int level = 0; level < Depth; ++level)
            handleEvents();
        return *control<QStackedWidget>("contentView").currentWidget();
    }

private:
    QFont _font;
    QtTexts _texts;
};

INSTANTIATE_TEST_SUITE_P(OfTheProgram, PreferencesLanguagesTest, testing::Values("en", "de", "fr"),
    [](const auto& language) { return std::string(language.param); });

TEST_P(PreferencesLanguagesTest, ClipsNoTextInAnyPaneAtAnySize) {
    showWithNotices();
    for (const int points : {9, 12, 24}) {
        setFontSize(points);
        for (std::size_t each = 0; each < PreferencePaneCount; ++each) {
            SCOPED_TRACE(testing::Message() << "pane " << each << " at " << points << " points");
            expectAllTextsFit(showPane(each));
        }
        for (const BorderNotice notice : {BorderNotice::SettingsAreUnwritten, BorderNotice::AccessCannotBeSwitchedOn}) {
            SCOPED_TRACE(testing::Message() << "notice " << static_cast<int>(notice) << " at " << points << " points");
            window().setBorderNotice(notice);
            expectAllTextsFit(showPane(0));
        }
        window().setBorderNotice(BorderNotice::AccessIsMissing);
    }
}

TEST_P(PreferencesLanguagesTest, ScrollsNothingThatTheScreenHasRoomFor) {
    hideSettingsWithoutEffect();
    setFontSize(9);
    controller().displayWindow();
    for (std::size_t each = 0; each < PreferencePaneCount; ++each) {
        const auto* area = showPane(each).findChild<QScrollArea*>();
        EXPECT_LE(area->widget()->width(), area->viewport()->width()) << each;
        EXPECT_LE(area->widget()->height(), area->viewport()->height()) << each;
    }
}

// With Alt, a letter that two controls of a pane share goes from one to the other and presses neither.
TEST_P(PreferencesLanguagesTest, GivesNoLetterToTwoControlsOfAPane) {
    showWithNotices();
    for (std::size_t each = 0; each < PreferencePaneCount; ++each) {
        std::map<QString, QString> controls;
        const auto look = [&](const QString& text) {
            const QString letter = QKeySequence::mnemonic(text).toString();
            if (letter.isEmpty())
                return;
            const auto [first, isNew] = controls.emplace(letter, text);
            EXPECT_TRUE(isNew) << letter.toStdString() << ": " << first->second.toStdString() << ", "
                               << text.toStdString();
        };
        QWidget& pane = showPane(each);
        for (const auto* button : pane.findChildren<QAbstractButton*>())
            look(button->text());
        for (const auto* label : pane.findChildren<QLabel*>()) {
            if (label->buddy() != nullptr)
                look(label->text());
        }
    }
}

} // namespace
} // namespace tarragon

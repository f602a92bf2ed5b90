// How the preferences window is put together.

#include "prefs/widgets/QtPreferencesWindow.h"

#include "platform/PreferenceKeys.h"
#include "prefs/PreferencesWindowController.h"
#include "prefs/widgets/PreferenceTexts.h"
#include "prefs/widgets/TintedPicture.h"

#include <ui_ZDPreferences.h>

#include <QActionGroup>
#include <QShortcut>
#include <QVariantAnimation>

#include <algorithm>
#include <utility>

namespace tarragon {

QtPreferencesWindow::QtPreferencesWindow(
    Platform platform, PreferencesWindowController& controller, const std::string& version, std::ostream& standardError)
    : _platform(std::move(platform))
    , _controller(controller)
    , _ui(std::make_unique<Ui::ZDPreferences>())
    , _bindings(_platform.defaults)
    , _animation(new QVariantAnimation(this)) {
    _ui->setupUi(this);
    setUpToolbar();
    setUpControls(standardError);
    setUpAbout(version);
    setUpHeadings();
    alignWords();
    hideSettingsWithoutEffect();
    describeControls();
    // Before the actions, which look at what the user's click has stored.
    _bindings.bind(*this);
    setUpActions();
    followSettings();
    QtPreferencesWindow::setHotKeyRefusal(std::nullopt);
    QtPreferencesWindow::setBorderNotice(BorderNotice::None);
    constexpr int IconSize = 24;
    _ui->borderViewIcon->setPixmap(style()
                                       ->standardIcon(QStyle::SP_MessageBoxWarning, nullptr, this)
                                       .pixmap(QSize(IconSize, IconSize), devicePixelRatioF()));
    connect(_animation, &QVariantAnimation::valueChanged, this,
        [this](const QVariant& height) { resize(_size.width(), height.toInt()); });
    _fitting.setSingleShot(true);
    connect(&_fitting, &QTimer::timeout, this, &QtPreferencesWindow::fitHeight);
    watchPanes();
    keepWheelForPanes();
    fitWidth();
    _size = {minimumWidth(), toolbarHeight()};
}

void QtPreferencesWindow::setUpToolbar() {
    auto* group = new QActionGroup(this);
    for (QAction* item : items()) {
        group->addAction(item);
        item->setIcon(tintedIcon(item->property("picture").toString()));
        connect(item, &QAction::triggered, this, [this, item] {
            _controller.changePreferencePane(toolbarItems().at(static_cast<std::size_t>(items().indexOf(item))));
        });
        _ui->toolbar->widgetForAction(item)->setFocusPolicy(Qt::TabFocus);
    }
} // NOLINT(clang-analyzer-cplusplus.NewDeleteLeaks): the group belongs to the window

void QtPreferencesWindow::setUpControls(std::ostream& standardError) {
    if (_platform.keyboard != nullptr) {
        _transformer.emplace(*_platform.keyboard);
        // The own menu has no key combinations.
        _ui->shortcutRecorder->setServices(
            {_platform.keyboard, _platform.keyRecorder, &*_transformer, [] { return std::shared_ptr<const Menu>(); }});
    }
    _ui->shortcutRecorder->setDelegate(this);
    _ui->mouseButtonIdentifier->setServices(_platform.inputEvents, _platform.runLoop, standardError);
    _ui->ignoreListView->setServices(_platform.defaults, _platform.installedApplications, _platform.windowPicker);
}

void QtPreferencesWindow::setUpActions() {
    const auto clicks = [this](QAbstractButton* button, auto action) {
        connect(button, &QAbstractButton::clicked, this, action);
    };
    clicks(_ui->launchCheckBox, [this] { _controller.startAtLogin(); });
    clicks(_ui->resetButton, [this] { _controller.resetButton(); });
    clicks(_ui->applyChangesButton, [this] { _controller.applyChanges(); });
    clicks(_ui->quitButton, [this] { _controller.quitFennick(); });
    clicks(_ui->tryAnotherButton, [this] { _controller.tryAnotherCombination(); });
    clicks(_ui->takeProposalButton, [this] { _controller.tryAnotherCombination(); });
    clicks(_ui->switchAccessOnButton, [this] { _controller.switchAccessOn(); });
    clicks(_ui->productWebPageButton, [this] { _controller.openProductWebpage(); });
    clicks(_ui->twitterWebPageButton, [this] { _controller.openTwitterWebpage(); });
    clicks(_ui->facebookWebPageButton, [this] { _controller.openFacebookWebpage(); });
    clicks(_ui->screencastButton, [this] { _controller.openScreencastWebpage(); });
    for (QCheckBox* box : {_ui->enableHotkey, _ui->enableButton, _ui->enableScreenTop})
        connect(box, &QCheckBox::clicked, this, [this, box] {
            _controller.checkIfBothOptionsAreNotOff(box->property("enablingTitle").toString().toStdString());
        });
    for (QToolButton* button : _ui->helpGroup->findChildren<QToolButton*>())
        connect(button, &QToolButton::clicked, this,
            [this, button] { _controller.changeHelpText(button->property("helpTag").toLongLong()); });
    connect(_ui->mouseButtonIdentifier, &ZDMouseButtonIdentifier::actionSent, this,
        [this] { _controller.mouseButtonChanged(); });
    for (const QKeySequence& keys : {QKeySequence(Qt::Key_Escape), QKeySequence(Qt::CTRL | Qt::Key_W)})
        connect(new QShortcut(keys, this), &QShortcut::activated, this, [this] { _controller.fadeOutWindow(); });
    connect(new QShortcut(QKeySequence::HelpContents, this), &QShortcut::activated, _ui->helpItem, &QAction::trigger);
}

// What is shown of settings beside their own controls.
void QtPreferencesWindow::followSettings() {
    const auto showHotKey = [this] {
        setShortcutRecorderValue(_controller.shortcutRecorderValue());
        showPopUpHelp();
    };
    _bindings.follow(preference::TriggerModifiers, showHotKey);
    _bindings.follow(preference::TriggerCharacterUInt, showHotKey);
    _bindings.follow(preference::MouseButton, [this] {
        setMouseButtonNumber(
            static_cast<std::uint32_t>(integerValue(_platform.defaults.value(preference::MouseButton))));
        showPopUpHelp();
    });
    for (const std::string_view key : {preference::EnableHotkey, preference::EnableMouseButton})
        _bindings.follow(key, [this] { showPopUpHelp(); });
}

void QtPreferencesWindow::setUpHeadings() {
    for (QLabel* label : findChildren<QLabel*>()) {
        if (!label->property("isHeading").toBool())
            continue;
        // The size stays that of the window.
        QFont bold;
        bold.setBold(true);
        label->setFont(bold);
    }
}

// Words begin below those of their control. By itself a label begins where the language of its words does, which may
// be the other side than that of the window's layout.
void QtPreferencesWindow::alignWords() {
    const Qt::Alignment side = (isRightToLeft() ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignAbsolute;
    for (QLabel* label : findChildren<QLabel*>()) {
        if (!label->alignment().testFlag(Qt::AlignHCenter))
            label->setAlignment(side | (label->alignment() & Qt::AlignVertical_Mask));
    }
}

void QtPreferencesWindow::watchPanes() {
    for (std::size_t pane = 0; pane < PreferencePaneCount; ++pane)
        paneView(static_cast<PreferencePane>(pane)).findChild<QScrollArea*>()->widget()->installEventFilter(this);
    _ui->borderView->installEventFilter(this);
}

// Controls that a turn of the wheel would change have to be chosen first.
void QtPreferencesWindow::keepWheelForPanes() {
    for (QWidget* control : findChildren<QWidget*>()) {
        if (qobject_cast<QAbstractSpinBox*>(control) == nullptr && qobject_cast<QComboBox*>(control) == nullptr)
            continue;
        control->setFocusPolicy(Qt::StrongFocus);
        control->installEventFilter(this);
    }
}

void QtPreferencesWindow::setUpAbout(const std::string& version) {
    _ui->aboutName->setText("Tarragon");
    _ui->aboutVersion->setText(versionText(version));
    _ui->aboutLibraries->setText(librariesText());
    const WebPages& pages = _controller.webPages();
    _ui->productWebPageButton->setHidden(pages.product.empty());
    _ui->twitterWebPageButton->setHidden(pages.twitter.empty());
    _ui->facebookWebPageButton->setHidden(pages.facebook.empty());
    _ui->webPagesRow->setHidden(pages.product.empty() && pages.twitter.empty() && pages.facebook.empty());
    _ui->screencastRow->setHidden(pages.screencast.empty());
}

void QtPreferencesWindow::hideSettingsWithoutEffect() {
    const auto rowsOf = [](const QWidget& widget) {
        auto rows = widget.findChildren<QWidget*>();
        rows.removeIf([](const QWidget* row) { return !row->property("preferenceRow").isValid(); });
        return rows;
    };
    for (QWidget* row : rowsOf(*this)) {
        const std::string key = row->property("preferenceRow").toString().toStdString();
        row->setHidden(std::ranges::count(_platform.settingsWithoutEffect, key) > 0);
    }
    for (QGroupBox* group : findChildren<QGroupBox*>()) {
        const auto rows = rowsOf(*group);
        if (!rows.empty())
            group->setHidden(std::ranges::all_of(rows, [](const QWidget* row) { return row->isHidden(); }));
    }
}

// A screen reader tells the line of help after the name of the control.
void QtPreferencesWindow::describeControls() {
    for (const HelpLine* help : findChildren<HelpLine*>()) {
        for (QWidget* control : help->parentWidget()->findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
            if (control->focusPolicy() != Qt::NoFocus)
                control->setAccessibleDescription(help->text());
        }
    }
}

} // namespace tarragon

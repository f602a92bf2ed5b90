#include "prefs/widgets/PreferenceBindings.h"

#include "platform/Log.h"
#include "platform/PreferenceKeys.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QStringList>

#include <algorithm>
#include <utility>

namespace tarragon {

namespace {

std::string textOf(const QObject& object, const char* property) {
    return object.property(property).toString().toStdString();
}

} // namespace

PreferenceBindings::PreferenceBindings(Defaults& defaults)
    : _defaults(defaults) { }

PreferenceBindings::~PreferenceBindings() {
    for (const DefaultsObserver observer : _observers)
        _defaults.removeObserver(observer);
}

void PreferenceBindings::bind(QWidget& window) {
    const auto widgets = window.findChildren<QWidget*>();
    for (QWidget* widget : widgets) {
        if (const std::string key = textOf(*widget, "preferenceKey"); !key.empty())
            bindControl(*widget, key);
        if (widget->property("enabledWhile").isValid())
            bindEnabling(*widget);
    }
}

void PreferenceBindings::follow(std::string_view key, std::function<void()> show) {
    auto& shown = _shown[std::string(key)];
    if (shown.empty())
        _observers.push_back(_defaults.addObserver(
            keyPathOfPreference(key), [this, name = std::string(key)](const std::string&) { this->show(name); }));
    show();
    shown.push_back(std::move(show));
}

void PreferenceBindings::willChangeValueForKey(std::string_view key) {
    _changing.emplace(key);
}

void PreferenceBindings::didChangeValueForKey(std::string_view key) {
    if (const auto found = _changing.find(std::string(key)); found != _changing.end())
        _changing.erase(found);
    show(std::string(key));
}

void PreferenceBindings::show(const std::string& key) {
    if (_changing.contains(key))
        return;
    if (const auto found = _shown.find(key); found != _shown.end())
        std::ranges::for_each(found->second, [](const auto& show) { show(); });
}

void PreferenceBindings::store(const std::string& key, const DefaultsValue& value) {
    if (!_defaults.setValue(key, value))
        log(LogCategory::Settings, [&] { return std::string(key).append(" cannot be written to disk"); });
}

void PreferenceBindings::bindControl(QWidget& control, const std::string& key) {
    if (auto* button = qobject_cast<QAbstractButton*>(&control))
        bindButton(*button, key, control.property("preferenceIsReadOnly").toBool());
    else if (auto* spinBox = qobject_cast<QSpinBox*>(&control))
        bindSpinBox(*spinBox, key);
    else if (auto* comboBox = qobject_cast<QComboBox*>(&control))
        bindComboBox(*comboBox, key);
    else if (auto* lineEdit = qobject_cast<QLineEdit*>(&control))
        bindLineEdit(*lineEdit, key);
}

void PreferenceBindings::bindButton(QAbstractButton& button, const std::string& key, bool isReadOnly) {
    const QVariant chosen = button.property("preferenceValue");
    const bool value = !chosen.isValid() || chosen.toBool();
    follow(key, [this, &button, key, value] {
        const QSignalBlocker quiet(button);
        const bool isOn = boolValue(_defaults.value(key)) == value;
        // The radio button beside it is switched off by the one that is switched on.
        if (isOn || qobject_cast<QRadioButton*>(&button) == nullptr)
            button.setChecked(isOn);
    });
    if (!isReadOnly)
        QObject::connect(&button, &QAbstractButton::clicked, &_connections,
            [this, key, value](bool isOn) { store(key, isOn == value); });
}

void PreferenceBindings::bindSpinBox(QSpinBox& spinBox, const std::string& key) {
    const QVariant least = spinBox.property("valueAtMinimum");
    follow(key, [this, &spinBox, key, least] {
        const std::int64_t value = integerValue(_defaults.value(key));
        const QSignalBlocker quiet(spinBox);
        const bool isLeast = least.isValid() && value <= least.toLongLong();
        // The least value means something else than the numbers above it.
        const int smallest = spinBox.minimum() + (least.isValid() ? 1 : 0);
        spinBox.setValue(isLeast ? spinBox.minimum()
                                 : static_cast<int>(std::clamp<std::int64_t>(value, smallest, spinBox.maximum())));
    });
    QObject::connect(&spinBox, &QSpinBox::valueChanged, &_connections, [this, &spinBox, key, least](int value) {
        const bool isLeast = least.isValid() && value == spinBox.minimum();
        store(key, static_cast<std::int64_t>(isLeast ? least.toLongLong() : value));
    });
}

void PreferenceBindings::bindComboBox(QComboBox& comboBox, const std::string& key) {
    const QStringList values = comboBox.property("preferenceValues").toStringList();
    follow(key, [this, &comboBox, key, values] {
        const QString value = QString::number(integerValue(_defaults.value(key)));
        const QSignalBlocker quiet(comboBox);
        const auto shows = [&](const QString& numbers) { return numbers.split(',').contains(value); };
        const auto found = std::ranges::find_if(values, shows);
        // None where the value is none of those.
        comboBox.setCurrentIndex(found == values.end() ? -1 : int(found - values.begin()));
    });
    QObject::connect(&comboBox, &QComboBox::activated, &_connections, [this, key, values](int index) {
        store(key, static_cast<std::int64_t>(values.value(index).section(',', 0, 0).toLongLong()));
    });
}

void PreferenceBindings::bindLineEdit(QLineEdit& lineEdit, const std::string& key) {
    follow(key, [this, &lineEdit, key] {
        const QString text = QString::fromStdString(stringValue(_defaults.value(key)).value_or(""));
        // What the user is typing came from here, and the cursor stays where it is.
        if (lineEdit.text() != text)
            lineEdit.setText(text);
    });
    QObject::connect(&lineEdit, &QLineEdit::textEdited, &_connections,
        [this, key](const QString& text) { store(key, text.toStdString()); });
}

void PreferenceBindings::bindEnabling(QWidget& widget) {
    const QStringList conditions = widget.property("enabledWhile").toString().split(',', Qt::SkipEmptyParts);
    const auto show = [this, &widget, conditions] {
        widget.setEnabled(std::ranges::all_of(conditions, [this](const QString& condition) {
            const bool isNegated = condition.startsWith('!');
            return boolValue(_defaults.value(condition.mid(isNegated ? 1 : 0).toStdString())) != isNegated;
        }));
    };
    for (const QString& condition : conditions)
        follow(condition.mid(condition.startsWith('!') ? 1 : 0).toStdString(), show);
}

} // namespace tarragon

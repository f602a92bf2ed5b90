#pragma once

#include "platform/Defaults.h"

#include <QObject>

#include <functional>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

class QAbstractButton;
class QComboBox;
class QLineEdit;
class QSpinBox;
class QWidget;

namespace tarragon {

// Binds the controls of a window to settings, both ways: what the user does is stored, and what is stored, by whomever,
// is shown at once. Showing a value stores nothing, also where the control cannot show it as it is.
//
// Controls tell by dynamic properties what they are about:
//   preferenceKey         the setting
//   preferenceIsReadOnly  somebody else stores what the user does
//   preferenceValue       radio buttons: the boolean for which this one stands
//   preferenceValues      combo boxes: a number for each entry; further ones after a comma are shown by it as well
//   valueAtMinimum        spin boxes: the number for which the least value stands, and for all below it
//   enabledWhile          any widget: the booleans that must be set, or not set after a "!", separated by commas
//
// Main thread only.
class PreferenceBindings {
public:
    // The settings outlive this object.
    explicit PreferenceBindings(Defaults& defaults);
    ~PreferenceBindings();
    PreferenceBindings(const PreferenceBindings&) = delete;
    PreferenceBindings& operator=(const PreferenceBindings&) = delete;

    // Everything in the window, which outlives this object. Once.
    void bind(QWidget& window);
    // Called now, and after each change of the setting.
    void follow(std::string_view key, std::function<void()> show);

    // Between the two nothing is shown; afterwards, what is stored then.
    void willChangeValueForKey(std::string_view key);
    void didChangeValueForKey(std::string_view key);

private:
    void bindControl(QWidget& control, const std::string& key);
    void bindButton(QAbstractButton& button, const std::string& key, bool isReadOnly);
    void bindSpinBox(QSpinBox& spinBox, const std::string& key);
    void bindComboBox(QComboBox& comboBox, const std::string& key);
    void bindLineEdit(QLineEdit& lineEdit, const std::string& key);
    void bindEnabling(QWidget& widget);
    void store(const std::string& key, const DefaultsValue& value);
    void show(const std::string& key);

    Defaults& _defaults;
    std::map<std::string, std::vector<std::function<void()>>> _shown; // by key
    std::vector<DefaultsObserver> _observers;
    std::multiset<std::string> _changing;
    QObject _connections; // ends with this object, and the connections with it
};

} // namespace tarragon

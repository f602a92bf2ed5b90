#include "prefs/StartAtLogin.h"

#include "prefs/GTMLoginItems.h"

namespace tarragon {

void setStartAtLogin(LoginItemList* list, const std::string& bundlePath, bool startAtLogin) {
    if (startAtLogin)
        GTMLoginItems::addPathToLoginItems(list, bundlePath, false);
    else
        GTMLoginItems::removeItemWithNameFromLoginItems(list, "Tarragon");
}

} // namespace tarragon

#pragma once

#include "platform/InstalledApplications.h"

#include <QHash>
#include <QIcon>

#include <string>

namespace tarragon {

// The pictures of applications, each looked for when it is first shown.
class ApplicationIcons {
public:
    // applications is nullptr where nobody knows what is installed; it outlives the icons.
    explicit ApplicationIcons(InstalledApplications* applications)
        : _applications(applications) { }

    // A picture that stands for any application where this one is not installed or has none.
    QIcon iconOfBundle(const std::string& bundleIdentifier);
    // The same for a picture as an application bundle names it.
    QIcon icon(const std::string& name);
    // What is installed may be something else from now on.
    void forget();

private:
    InstalledApplications* _applications;
    bool _areNamesKnown = false;
    QHash<QString, std::string> _names; // by bundle identifier
    QHash<QString, QIcon> _icons; // by name
};

} // namespace tarragon

// Asks a release feed for a newer version: how the agent learns of one without bearing the libraries that it takes.

#include "updates/UpdateDecision.h"
#include "updates/UpdateMessage.h"
#include "updates/feed/ReleaseFeed.h"
#include "updates/feed/ReleaseList.h"

#include <QCoreApplication>
#include <QNetworkProxyFactory>

#include <iostream>
#include <string>

using namespace tarragon;

namespace {

UpdateOutcome outcomeOf(const FetchedDocument& fetched, const std::string& runningVersion) {
    if (const auto* unknown = std::get_if<UpdateUnknown>(&fetched))
        return *unknown;
    const auto releases = readReleaseList(std::get<std::string>(fetched));
    if (!releases)
        return UpdateUnknown{UpdateProblem::NotAReleaseList, {}};
    return decideUpdate(*releases, runningVersion, compareVersions);
}

} // namespace

int main(int argumentCount, char** arguments) {
    if (argumentCount != 3) {
        std::cerr
            << "Usage: tarragon-updates ADDRESS VERSION\n"
               "Tells, as a line of JSON, whether the release list at ADDRESS has a newer release than VERSION.\n";
        return 2;
    }
    const std::string address = arguments[1];
    const std::string version = arguments[2];
    // Otherwise the toolkit would look for options of its own in them.
    int ownCount = 1;
    const QCoreApplication application(ownCount, arguments);
    QNetworkProxyFactory::setUseSystemConfiguration(true);
    ReleaseFeed feed;
    feed.fetch(address, [&](const FetchedDocument& fetched) {
        std::cout << updateMessage(outcomeOf(fetched, version)) << std::endl;
        QCoreApplication::quit();
    });
    return QCoreApplication::exec();
}

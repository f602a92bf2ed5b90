#pragma once

#include "updates/UpdateOutcome.h"

#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QTimer>

#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <variant>

namespace tarragon {

// The document, as it came.
using FetchedDocument = std::variant<std::string, UpdateUnknown>;

// Fetches one document from an https, http or file address, without blocking the event loop. Redirects are followed to
// schemes that are no less safe. One thread only.
class ReleaseFeed : public QObject {
public:
    struct Limits {
        std::chrono::milliseconds time = std::chrono::seconds(15); // for all of it, redirects included
        qint64 size = 1 << 20; // bytes, unpacked
    };

    explicit ReleaseFeed(Limits limits);
    ReleaseFeed()
        : ReleaseFeed(Limits()) { }

    // Once; the handler is called later, once.
    void fetch(const std::string& address, std::function<void(const FetchedDocument&)> handler);

private:
    void readMore();
    void finish();
    void answer(const FetchedDocument& document);
    void abort(UpdateProblem problem, const std::string& detail = {});

    const Limits _limits;
    QNetworkAccessManager _network;
    QTimer _timeout;
    std::unique_ptr<QNetworkReply> _reply;
    QByteArray _document;
    std::function<void(const FetchedDocument&)> _handler;
};

} // namespace tarragon

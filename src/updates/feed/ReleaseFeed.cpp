#include "updates/feed/ReleaseFeed.h"

#include <QNetworkRequest>
#include <QUrl>

#include <utility>

namespace tarragon {

namespace {

bool isUsable(const QUrl& address) {
    if (!address.isValid())
        return false;
    if (address.isLocalFile())
        return address.host().isEmpty() && !address.path().isEmpty();
    return (address.scheme() == "https" || address.scheme() == "http") && !address.host().isEmpty();
}

} // namespace

ReleaseFeed::ReleaseFeed(Limits limits)
    : _limits(limits) {
    _timeout.setSingleShot(true);
    connect(&_timeout, &QTimer::timeout, this, [this] { abort(UpdateProblem::TimedOut); });
}

void ReleaseFeed::fetch(const std::string& address, std::function<void(const FetchedDocument&)> handler) {
    _handler = std::move(handler);
    const QUrl url(QString::fromStdString(address), QUrl::StrictMode);
    if (!isUsable(url)) {
        QTimer::singleShot(0, this, [this, address] { abort(UpdateProblem::AddressUnusable, address); });
        return;
    }
    QNetworkRequest request(url);
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::NoLessSafeRedirectPolicy);
    request.setAttribute(QNetworkRequest::CacheLoadControlAttribute, QNetworkRequest::AlwaysNetwork);
    request.setAttribute(QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::Manual);
    request.setAttribute(QNetworkRequest::CookieSaveControlAttribute, QNetworkRequest::Manual);
    constexpr int MostRedirects = 5;
    request.setMaximumRedirectsAllowed(MostRedirects);
    _timeout.start(_limits.time);
    _reply.reset(_network.get(request));
    // A sender is not let ahead of what was read.
    _reply->setReadBufferSize(_limits.size + 1);
    connect(_reply.get(), &QNetworkReply::readyRead, this, [this] { readMore(); });
    connect(_reply.get(), &QNetworkReply::finished, this, [this] { finish(); });
}

void ReleaseFeed::readMore() {
    _document.append(_reply->read(_limits.size + 1 - _document.size()));
    if (_document.size() > _limits.size)
        abort(UpdateProblem::TooLarge);
}

void ReleaseFeed::finish() {
    readMore();
    if (!_handler)
        return;
    const QNetworkReply::NetworkError error = _reply->error();
    // Another protocol than ours can only come from a redirect.
    if (error == QNetworkReply::InsecureRedirectError || error == QNetworkReply::ProtocolUnknownError)
        return abort(UpdateProblem::UnsafeRedirect);
    constexpr int StatusOK = 200;
    const QVariant status = _reply->attribute(QNetworkRequest::HttpStatusCodeAttribute);
    const bool isRedirectLoop = error == QNetworkReply::TooManyRedirectsError;
    if (status.isValid() && status.toInt() != StatusOK && !isRedirectLoop) {
        const QString reason = _reply->attribute(QNetworkRequest::HttpReasonPhraseAttribute).toString();
        return abort(UpdateProblem::HttpStatus, (status.toString() + ' ' + reason).trimmed().toStdString());
    }
    if (error != QNetworkReply::NoError)
        return abort(UpdateProblem::Unreachable, _reply->errorString().toStdString());
    answer(_document.toStdString());
}

void ReleaseFeed::answer(const FetchedDocument& document) {
    _timeout.stop();
    if (const auto handler = std::exchange(_handler, nullptr))
        handler(document);
}

void ReleaseFeed::abort(UpdateProblem problem, const std::string& detail) {
    if (_reply) {
        _reply->disconnect(this);
        _reply->abort();
    }
    // It may hold what a server says, which may be anything.
    constexpr qsizetype MostCharacters = 200;
    answer(UpdateUnknown{problem, QString::fromStdString(detail).simplified().left(MostCharacters).toStdString()});
}

} // namespace tarragon

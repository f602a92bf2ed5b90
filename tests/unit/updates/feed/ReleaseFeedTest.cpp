#include "updates/feed/ReleaseFeed.h"

#include <QFile>
#include <QHostAddress>
#include <QSslCertificate>
#include <QSslConfiguration>
#include <QSslKey>
#include <QSslSocket>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <QTest>
#include <QUrl>

#include <cstdlib>
#include <optional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace tarragon {
namespace {

using namespace std::chrono_literals;

// A server on this machine that answers each path with bytes that the test chose, and keeps silent for others.
class Server : public QTcpServer {
public:
    explicit Server(bool isSafe = false)
        : _isSafe(isSafe) {
        listen(QHostAddress::LocalHost);
    }
    void setIdentity(const QSslCertificate& certificate, const QSslKey& key) {
        _certificate = certificate;
        _key = key;
    }
    std::string address(const std::string& path) const {
        return (_isSafe ? "https://localhost:" : "http://127.0.0.1:") + std::to_string(serverPort()) + path;
    }
    void answer(const QByteArray& path, const QByteArray& bytes) { _answers[path] = bytes; }
    void answerDocument(const QByteArray& path, const QByteArray& document) {
        answer(
            path, "HTTP/1.1 200 OK\r\nContent-Length: " + QByteArray::number(document.size()) + "\r\n\r\n" + document);
    }
    void redirect(const QByteArray& path, const std::string& target) {
        answer(path,
            "HTTP/1.1 302 Found\r\nContent-Length: 0\r\nLocation: " + QByteArray::fromStdString(target) + "\r\n\r\n");
    }
    // The paths that were asked for, in order.
    const std::vector<QByteArray>& requests() const { return _requests; }

protected:
    void incomingConnection(qintptr descriptor) override {
        auto* const socket = new QSslSocket(this);
        socket->setSocketDescriptor(descriptor);
        connect(socket, &QSslSocket::readyRead, this, [this, socket] { read(*socket); });
        if (_isSafe) {
            socket->setLocalCertificate(_certificate);
            socket->setPrivateKey(_key);
            socket->startServerEncryption();
        }
    }

private:
    void read(QSslSocket& socket) {
        QByteArray& request = _received[&socket];
        request += socket.readAll();
        if (!request.contains("\r\n\r\n"))
            return;
        const QByteArray path = request.split(' ').value(1);
        request.clear();
        _requests.push_back(path);
        if (_answers.contains(path))
            socket.write(_answers[path]);
    }

    const bool _isSafe;
    QSslCertificate _certificate;
    QSslKey _key;
    QMap<QByteArray, QByteArray> _answers;
    QMap<QSslSocket*, QByteArray> _received;
    std::vector<QByteArray> _requests;
};

class ReleaseFeedTest : public testing::Test {
protected:
    FetchedDocument fetch(const std::string& address, ReleaseFeed::Limits limits = {}) {
        ReleaseFeed feed(limits);
        std::optional<FetchedDocument> result;
        int answers = 0;
        feed.fetch(address, [&](const FetchedDocument& document) {
            result = document;
            ++answers;
        });
        EXPECT_EQ(answers, 0) << "answers at once";
        EXPECT_TRUE(QTest::qWaitFor([&] { return result.has_value(); }, 30'000));
        EXPECT_EQ(answers, 1);
        return result.value_or(std::string());
    }
    static FetchedDocument problem(UpdateProblem kind, const std::string& detail = {}) {
        return UpdateUnknown{kind, detail};
    }
    static UpdateProblem problemOf(const FetchedDocument& document) {
        const auto* const unknown = std::get_if<UpdateUnknown>(&document);
        return unknown ? unknown->problem : UpdateProblem::Failed;
    }

    Server server;
};

TEST_F(ReleaseFeedTest, FetchesADocument) {
    server.answerDocument("/releases.xml", "<releases/>");
    EXPECT_EQ(fetch(server.address("/releases.xml")), FetchedDocument("<releases/>"));
}

TEST_F(ReleaseFeedTest, FetchesAFile) {
    const QTemporaryDir folder;
    const QString path = folder.filePath("my releases.xml");
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("<releases/>");
    file.close();
    EXPECT_EQ(fetch(QUrl::fromLocalFile(path).toEncoded().toStdString()), FetchedDocument("<releases/>"));
    EXPECT_EQ(problemOf(fetch("file:///nowhere/releases.xml")), UpdateProblem::Unreachable);
}

TEST_F(ReleaseFeedTest, RefusesAFileThatIsTooLarge) {
    const QTemporaryDir folder;
    QFile file(folder.filePath("releases.xml"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.resize(1'048'577));
    EXPECT_EQ(fetch("file://" + file.fileName().toStdString()), problem(UpdateProblem::TooLarge));
    ASSERT_TRUE(file.resize(1'048'576));
    EXPECT_EQ(fetch("file://" + file.fileName().toStdString()), FetchedDocument(std::string(1'048'576, '\0')));
}

TEST_F(ReleaseFeedTest, RefusesOtherAddresses) {
    for (const std::string address :
        {"", "releases.xml", "/etc/hostname", "ftp://example.org/x", "https://", "http:///x",
            "data:text/xml,<releases/>", "qrc:/x", "file://", "file://server/share", "http://exa mple.org/"})
        EXPECT_EQ(problemOf(fetch(address)), UpdateProblem::AddressUnusable) << address;
    EXPECT_EQ(fetch("gopher://old"), problem(UpdateProblem::AddressUnusable, "gopher://old"));
}

TEST_F(ReleaseFeedTest, TellsTheStatusOfAServer) {
    server.answer("/missing", "HTTP/1.1 404 Not Found\r\nContent-Length: 5\r\n\r\nhello");
    EXPECT_EQ(fetch(server.address("/missing")), problem(UpdateProblem::HttpStatus, "404 Not Found"));
    server.answer("/broken", "HTTP/1.1 500 Oh\r\nContent-Length: 0\r\n\r\n");
    EXPECT_EQ(fetch(server.address("/broken")), problem(UpdateProblem::HttpStatus, "500 Oh"));
    server.answer("/nothing", "HTTP/1.1 204 No Content\r\n\r\n");
    EXPECT_EQ(fetch(server.address("/nothing")), problem(UpdateProblem::HttpStatus, "204 No Content"));
}

TEST_F(ReleaseFeedTest, ShortensWhatAServerSays) {
    server.answer("/", "HTTP/1.1 500 " + QByteArray(5000, 'x') + "\r\nContent-Length: 0\r\n\r\n");
    const FetchedDocument document = fetch(server.address("/"));
    ASSERT_TRUE(std::holds_alternative<UpdateUnknown>(document));
    EXPECT_EQ(std::get<UpdateUnknown>(document).detail.size(), 200U);
}

TEST_F(ReleaseFeedTest, TellsThatNobodyAnswers) {
    const std::string address = server.address("/");
    server.close();
    EXPECT_EQ(problemOf(fetch(address)), UpdateProblem::Unreachable);
    EXPECT_FALSE(std::get<UpdateUnknown>(fetch(address)).detail.empty());
    EXPECT_EQ(problemOf(fetch("http://nobody.invalid/")), UpdateProblem::Unreachable);
}

TEST_F(ReleaseFeedTest, GivesUpOnASilentServer) {
    EXPECT_EQ(fetch(server.address("/silent"), {.time = 50ms}), problem(UpdateProblem::TimedOut));
    // The head of an answer is no reason to wait on.
    server.answer("/half", "HTTP/1.1 200 OK\r\nContent-Length: 100\r\n\r\nhalf");
    EXPECT_EQ(fetch(server.address("/half"), {.time = 200ms}), problem(UpdateProblem::TimedOut));
    EXPECT_EQ(ReleaseFeed::Limits().time, 15s);
}

TEST_F(ReleaseFeedTest, RefusesADocumentThatIsTooLarge) {
    server.answerDocument("/fits", QByteArray(1'048'576, ' '));
    EXPECT_EQ(fetch(server.address("/fits")), FetchedDocument(std::string(1'048'576, ' ')));
    server.answerDocument("/large", QByteArray(1'048'577, ' '));
    EXPECT_EQ(fetch(server.address("/large")), problem(UpdateProblem::TooLarge));
    // Nor does it wait for the end of one that has none.
    server.answer("/endless", "HTTP/1.1 200 OK\r\n\r\n" + QByteArray(2'000'000, ' '));
    EXPECT_EQ(fetch(server.address("/endless")), problem(UpdateProblem::TooLarge));
}

TEST_F(ReleaseFeedTest, MeasuresADocumentUnpacked) {
    // 2 MB of blanks.
    QByteArray packed = qCompress(QByteArray(2'000'000, ' ')).mid(4);
    server.answer("/packed",
        "HTTP/1.1 200 OK\r\nContent-Encoding: deflate\r\nContent-Length: " + QByteArray::number(packed.size())
            + "\r\n\r\n" + packed);
    EXPECT_EQ(fetch(server.address("/packed")), problem(UpdateProblem::TooLarge));
}

TEST_F(ReleaseFeedTest, TellsOfAServerThatSpeaksAnotherLanguage) {
    server.answer("/", "nonsense\r\n\r\n");
    EXPECT_EQ(problemOf(fetch(server.address("/"), {.time = 5s})), UpdateProblem::Unreachable);
}

TEST_F(ReleaseFeedTest, FollowsRedirects) {
    server.redirect("/old", server.address("/new"));
    server.answerDocument("/new", "<releases/>");
    EXPECT_EQ(fetch(server.address("/old")), FetchedDocument("<releases/>"));
    EXPECT_EQ(server.requests(), (std::vector<QByteArray>{"/old", "/new"}));
}

TEST_F(ReleaseFeedTest, FollowsRedirectsNotForEver) {
    server.redirect("/", server.address("/"));
    EXPECT_EQ(problemOf(fetch(server.address("/"))), UpdateProblem::Unreachable);
    EXPECT_EQ(server.requests().size(), 6U);
}

TEST_F(ReleaseFeedTest, FollowsNoRedirectToAFile) {
    const QTemporaryDir folder;
    QFile file(folder.filePath("releases.xml"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("<releases/>");
    file.close();
    server.redirect("/", "file://" + file.fileName().toStdString());
    EXPECT_EQ(problemOf(fetch(server.address("/"))), UpdateProblem::UnsafeRedirect);
}

// A server that this process trusts for the time of the test.
class SafeServerTest : public ReleaseFeedTest {
protected:
    void SetUp() override {
        const std::string key = _folder.filePath("key").toStdString();
        const std::string certificate = _folder.filePath("certificate").toStdString();
        const std::string command = "openssl req -x509 -newkey ec -pkeyopt ec_paramgen_curve:prime256v1 -nodes -days 2"
                                    " -subj /CN=localhost -addext subjectAltName=DNS:localhost -keyout "
            + key + " -out " + certificate + " 2>/dev/null";
        if (!QSslSocket::supportsSsl() || std::system(command.c_str()) != 0)
            GTEST_SKIP() << "no certificate can be made";
        QFile keyFile(QString::fromStdString(key));
        ASSERT_TRUE(keyFile.open(QIODevice::ReadOnly));
        const QList<QSslCertificate> certificates = QSslCertificate::fromPath(QString::fromStdString(certificate));
        ASSERT_EQ(certificates.size(), 1);
        safeServer.setIdentity(certificates.first(), QSslKey(&keyFile, QSsl::Ec));
        QSslConfiguration trusting = _before;
        trusting.addCaCertificates(certificates);
        QSslConfiguration::setDefaultConfiguration(trusting);
    }
    void TearDown() override { QSslConfiguration::setDefaultConfiguration(_before); }
    void trustNobody() const { QSslConfiguration::setDefaultConfiguration(_before); }

    Server safeServer{true};

private:
    QTemporaryDir _folder;
    const QSslConfiguration _before = QSslConfiguration::defaultConfiguration();
};

TEST_F(SafeServerTest, FetchesADocument) {
    safeServer.answerDocument("/", "<releases/>");
    EXPECT_EQ(fetch(safeServer.address("/")), FetchedDocument("<releases/>"));
}

TEST_F(SafeServerTest, MustBeWhoItSaysItIs) {
    safeServer.answerDocument("/", "<releases/>");
    trustNobody();
    EXPECT_EQ(problemOf(fetch(safeServer.address("/"))), UpdateProblem::Unreachable);
    EXPECT_TRUE(safeServer.requests().empty());
}

TEST_F(SafeServerTest, MayBeLedOnToButNotAwayFrom) {
    safeServer.answerDocument("/new", "<releases/>");
    server.redirect("/old", safeServer.address("/new"));
    EXPECT_EQ(fetch(server.address("/old")), FetchedDocument("<releases/>"));
    server.answerDocument("/unsafe", "<releases/>");
    safeServer.redirect("/away", server.address("/unsafe"));
    EXPECT_EQ(problemOf(fetch(safeServer.address("/away"))), UpdateProblem::UnsafeRedirect);
    EXPECT_EQ(server.requests(), std::vector<QByteArray>{"/old"});
}

} // namespace
} // namespace tarragon

#include "app/updates/updatecheck.h"

#include "app/application.h"
#include "app/boxanswers.h"
#include "app/updates/checkupdatesdlg.h"
#include "app/updates/updatereply.h"
#include "settings/settings.h"
#include "settings/version.h"
#include "support/scopedsettings.h"

#include <QApplication>
#include <QDialog>
#include <QPushButton>
#include <QSignalSpy>
#include <QTcpServer>
#include <QTcpSocket>
#include <QUrlQuery>
#include <gtest/gtest.h>

// The search for a newer version, against a server of the test's own.

namespace {

QByteArray latest(const QByteArray &version, const QByteArray &url = "https%3A%2F%2Fexample.org%2Fget")
{
    return "<updates><windows><latest version=\"" + version + "\" url=\"" + url + "\"/></windows></updates>";
}

/// Answers each request with `reply`, whole; keeps the first line of the last one.
class Site : public QTcpServer
{
public:
    explicit Site(QByteArray reply)
        : m_reply(std::move(reply))
    {
        listen(QHostAddress::LocalHost);
        connect(this, &QTcpServer::newConnection, this, [this] { answer(nextPendingConnection()); });
    }
    QString address() const { return QStringLiteral("http://127.0.0.1:%1").arg(serverPort()); }
    QByteArray request;

private:
    void answer(QTcpSocket *socket)
    {
        connect(socket, &QTcpSocket::readyRead, socket, [this, socket] {
            if (request.isEmpty()) {
                request = socket->readLine();
            }
            socket->readAll();
            socket->write(m_reply);
            socket->disconnectFromHost();
        });
    }

    const QByteArray m_reply;
};

QByteArray ok(const QByteArray &body)
{
    return "HTTP/1.1 200 OK\r\nContent-Type: text/xml\r\nContent-Length: " + QByteArray::number(body.size())
           + "\r\nConnection: close\r\n\r\n" + body;
}

class UpdateCheckTest : public testing::Test
{
protected:
    void SetUp() override { m_settings->setSessions(2); }
    /// What was said during a check of the site.
    QStringList said(const QString &site, bool automatic, const QStringList &buttons = {})
    {
        const BoxAnswers answers(buttons);
        UpdateCheck check(m_prompts, site);
        QSignalSpy ended(&check, &UpdateCheck::ended);
        if (automatic) {
            check.onAutoCheckForUpdates();
        } else {
            check.checkForUpdates(false);
        }
        if (!ended.wait(automatic ? 3000 : 10000)) {
            return {QStringLiteral("nothing")};
        }
        return answers.texts();
    }

    ScopedSettings m_settings;
    ScriptedPrompts m_prompts;
};

} // namespace

TEST(UpdateReply, ReadsWhatTheServerSays)
{
    struct Case
    {
        const char *what;
        QByteArray reply;
        QVector<int> version;
        QString url, message;
    };
    const QString unreadable = "Unable to retrieve latest version information.";
    const Case cases[] = {
        {"a good one", latest("2.10.3"), {2, 10, 3}, "https://example.org/get", ""},
        {"two parts", latest("2.10"), {}, "https://example.org/get", unreadable},
        {"four parts", latest("1.2.3.4"), {}, "https://example.org/get", unreadable},
        {"no numbers", latest("1.x.3"), {}, "https://example.org/get", unreadable},
        {"below zero", latest("1.-2.3"), {}, "https://example.org/get", unreadable},
        {"a file to open", latest("2.0.0", "file%3A%2F%2F%2Fetc%2Fpasswd"), {2, 0, 0}, "", ""},
        {"no element", "<updates><mac/></updates>", {}, "", "Unable to retrieve update information."},
        {"a page of a hotel", "<html><body><p>Log in</body>", {}, "", unreadable},
        {"entities", "<!DOCTYPE a [<!ENTITY b \"c\">]><a/>", {}, "", unreadable},
        {"nothing", "", {}, "", unreadable},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.what);
        const UpdateReply reply = UpdateReply::parse(c.reply);
        EXPECT_EQ(reply.version, c.version);
        EXPECT_EQ(reply.url.toString(), c.url);
        EXPECT_EQ(reply.message, c.message);
    }
}

TEST_F(UpdateCheckTest, SaysHowTheVersionsCompare)
{
    const QByteArray own = Version::text;
    const struct
    {
        const char *what;
        QByteArray reply;
        QString manual; ///< begins so
        int automatic;  ///< boxes
    } cases[] = {
        {"newer", ok(latest("999.0.0")), "New version available!\nYou are using Quillmere", 1},
        {"the same", ok(latest(own)), "You are using Quillmere", 0},
        {"older", ok(latest("0.0.1")), "You are using Quillmere", 0},
        {"unreadable", ok("<a"), "Unable to retrieve latest version information.", 0},
        {"missing", "HTTP/1.1 404 Not Found\r\nContent-Length: 0\r\n\r\n", "Unable to retrieve updates information.",
            0},
        {"endless", ok(QByteArray(1000000, 'x')), "Unable to retrieve updates information.", 0},
        {"no web at all", "hello", "Unable to retrieve updates information.", 0},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        Site site(c.reply);
        EXPECT_TRUE(said(site.address(), false, {"Cancel"}).value(0).startsWith(c.manual));
        m_settings->setLastUpdatedCheck(QDate());
        EXPECT_EQ(said(site.address(), true, {"Cancel"}).size(), c.automatic);
        EXPECT_EQ(m_settings->lastUpdatedCheck(), QDate::currentDate());
    }
}

TEST_F(UpdateCheckTest, TellsTheServerWhatItAsks)
{
    Site site(ok(latest("0.0.1")));
    said(site.address(), true);
    const QUrlQuery query(QUrl(QString::fromLatin1(site.request.split(' ').value(1))).query());
    EXPECT_TRUE(site.request.startsWith("GET /updates.php?"));
    EXPECT_EQ(query.queryItemValue("v"), QString::fromLatin1(Version::text));
    EXPECT_EQ(query.queryItemValue("s"), QStringLiteral("2"));
    EXPECT_EQ(query.queryItemValue("f"), QStringLiteral("7"));
    EXPECT_FALSE(query.queryItemValue("p").isEmpty());
}

TEST_F(UpdateCheckTest, ChecksByItselfOnlyWhenItIsTime)
{
    const QDate today = QDate::currentDate();
    const struct
    {
        const char *what;
        int sessions;
        UpdateInterval interval;
        QDate last;
        bool checks;
    } cases[] = {
        {"first session", 1, UpdateInterval::Day, QDate(), false},
        {"never", 5, UpdateInterval::Never, QDate(), false},
        {"a week hasn't passed", 5, UpdateInterval::Week, today.addDays(-6), false},
        {"it has", 5, UpdateInterval::Week, today.addDays(-7), true},
        {"checked on a day to come", 5, UpdateInterval::Week, today.addDays(400), true},
    };
    Site site(ok(latest("0.0.1")));
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        m_settings->setSessions(c.sessions);
        m_settings->setAutoUpdateInterval(c.interval);
        m_settings->setLastUpdatedCheck(c.last);
        UpdateCheck check(m_prompts, site.address());
        check.onAutoCheckForUpdates();
        QCoreApplication::processEvents();
        EXPECT_EQ(m_settings->lastUpdatedCheck() == today, c.checks);
    }
}

TEST_F(UpdateCheckTest, CancelEndsTheQuestion)
{
    QTcpServer silent;
    ASSERT_TRUE(silent.listen(QHostAddress::LocalHost));
    UpdateCheck check(m_prompts, QStringLiteral("http://127.0.0.1:%1").arg(silent.serverPort()));
    QSignalSpy ended(&check, &UpdateCheck::ended);
    check.checkForUpdates(false);
    QDialog *dialog = nullptr;
    for (QWidget *widget : QApplication::topLevelWidgets()) {
        dialog = qobject_cast<CheckUpdatesDlg *>(widget) ? static_cast<QDialog *>(widget) : dialog;
    }
    ASSERT_TRUE(dialog && dialog->isVisible());
    dialog->findChild<QPushButton *>()->click();
    EXPECT_FALSE(dialog->isVisible());
    QCoreApplication::processEvents();
    EXPECT_EQ(ended.count(), 0);
}

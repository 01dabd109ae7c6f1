#include "text/expatparser.h"

#include <gtest/gtest.h>
#include <stdexcept>
#include <string>

namespace {

/// Writes down what it is told; throws at elements named "throw", stops at those named "stop".
class Listener
{
public:
    Listener()
        : m_expat(this)
    {
        m_expat.tellElements<&Listener::onStart, &Listener::onEnd>();
        m_expat.tellText<&Listener::onText>();
    }
    bool parse(const std::string &text) { return m_expat.parse(text.data(), static_cast<int>(text.size()), true); }

    std::string told;

private:
    void onStart(const char *name, const char **)
    {
        told += '<' + std::string(name);
        if (std::string(name) == "throw") {
            throw std::runtime_error("thrown");
        }
        if (std::string(name) == "stop") {
            m_expat.stop();
        }
    }
    void onEnd(const char *name) { told += '>' + std::string(name); }
    void onText(const char *bytes, int size) { told.append(bytes, static_cast<size_t>(size)); }

    ExpatParser m_expat;
};

TEST(ExpatParser, TellsNothingMoreOnceItEnds)
{
    const struct
    {
        const char *what, *text, *told;
        bool isParsed, throws;
    } cases[] = {
        {"a whole document", "<a>x<b/>y</a>", "<ax<b>by>a", true, false},
        {"a stop leaves out even the end of an empty element", "<a>x<stop/>y</a>", "<ax<stop", false, false},
        {"what a function throws comes out of parse()", "<a>x<throw/>y</a>", "<ax<throw", false, true},
        {"no XML", "<a>x</b>", "<ax", false, false},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        Listener listener;
        bool isParsed = false;
        if (c.throws) {
            EXPECT_THROW(listener.parse(c.text), std::runtime_error);
        } else {
            isParsed = listener.parse(c.text);
        }
        EXPECT_EQ(isParsed, c.isParsed);
        EXPECT_EQ(listener.told, c.told);
    }
}

} // namespace

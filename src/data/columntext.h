#pragma once

#include <QString>
#include <utility>

/// The form in which a document holds an option that names columns. What a document says waits until the table upstream
/// is known; after that the text of the last table known is kept, so that a table that can't be read any more, because
/// its file is gone, doesn't cost the document its choices.
class ColumnText
{
public:
    /// A document of `version` says `text`.
    void wait(const QString &text, int version = 0)
    {
        m_text = text;
        m_version = version;
        m_isWaiting = true;
    }
    bool isWaiting() const { return m_isWaiting; }
    /// What waits or is kept.
    const QString &text() const { return m_text; }
    /// Of the document that the waiting text comes from.
    int version() const { return m_version; }
    /// The table is known, and `text` is how the value stands against it.
    void keep(const QString &text)
    {
        m_text = text;
        m_isWaiting = false;
    }
    /// The waiting text, which waits no more.
    QString take()
    {
        m_isWaiting = false;
        return std::exchange(m_text, QString());
    }

private:
    QString m_text;
    int m_version = 0;
    bool m_isWaiting = false;
};

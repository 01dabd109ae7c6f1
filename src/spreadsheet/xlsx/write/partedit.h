#pragma once

#include <QByteArray>
#include <functional>
#include <vector>

namespace spreadsheet {

class DeflatedPart;

/// Changes of a part: ranges of its bytes that give way to others. The rest is carried over byte for byte.
class PartEdit
{
public:
    using Writer = std::function<void(DeflatedPart &out)>;

    /// Ranges mustn't overlap. What is put at the same place comes out in the order of the calls.
    void replace(qint64 begin, qint64 end, const QByteArray &bytes);
    void replace(qint64 begin, qint64 end, Writer writer);
    void insert(qint64 at, const QByteArray &bytes) { replace(at, at, bytes); }
    /// Puts the bytes behind all else that comes to stand at that place.
    void close(qint64 at, const QByteArray &bytes);
    bool isEmpty() const { return m_changes.empty(); }

    /// Takes the old part piece by piece and writes the new one.
    void feed(const char *bytes, int size, DeflatedPart &out);
    void finish(DeflatedPart &out);

private:
    struct Change
    {
        qint64 begin, end;
        Writer writer;
    };
    void sort();

    std::vector<Change> m_changes;
    qint64 m_closedAt = 0;
    QByteArray m_closing;
    size_t m_next = 0;   // the change that is due
    qint64 m_taken = 0;  // bytes of the old part so far
    qint64 m_resume = 0; // the old part counts again from here
    bool m_sorted = false;
};

} // namespace spreadsheet

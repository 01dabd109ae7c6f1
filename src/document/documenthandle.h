#pragma once

#include <QFileDevice>

/// The open document's own file while it is held against other writers. Each operation returns false, or -1, when the
/// system refuses it.
class DocumentHandle
{
public:
    virtual ~DocumentHandle() = default;
    virtual bool seek(qint64 position) = 0;
    /// Bytes written.
    virtual qint64 write(const QByteArray &bytes) = 0;
    /// Cuts the file at the current position.
    virtual bool truncate() = 0;
    virtual bool flush() = 0;
};

/// A handle over a file that somebody else has opened for reading and writing.
class DeviceHandle final : public DocumentHandle
{
public:
    explicit DeviceHandle(QFileDevice &file)
        : m_file(file)
    {
    }

    bool seek(qint64 position) override { return m_file.seek(position); }
    qint64 write(const QByteArray &bytes) override { return m_file.write(bytes); }
    bool truncate() override { return m_file.flush() && m_file.resize(m_file.pos()); }
    bool flush() override { return m_file.flush(); }

private:
    QFileDevice &m_file;
};

#pragma once

#include "outputs/textsink.h"

#include <QBuffer>
#include <gtest/gtest.h>
#include <string>

/// The bytes that `write`, which is given a sink, leaves on the device.
template<class Write>
std::string written(Write write, const QString &encoding = QStringLiteral("UTF-8"), bool byteOrderMark = false)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    TextSink sink(&buffer, encoding, byteOrderMark);
    write(sink);
    EXPECT_TRUE(sink.finish());
    return buffer.data().toStdString();
}

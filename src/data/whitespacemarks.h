#pragma once

#include <QString>

/// `text` with a mark in the place of each character that can't be seen: "·" for a blank, "→" for a tab, "↵" for a line
/// feed, "␍" for a carriage return and "°" for any other kind of blank, such as one that doesn't break. The marks are
/// for looking at only; the length stays.
inline QString withWhiteSpaceMarks(QString text)
{
    const auto markOf = [](QChar character) -> QChar {
        switch (character.unicode()) {
        case ' ':
            return QChar(0x00B7);
        case '\t':
            return QChar(0x2192);
        case '\n':
            return QChar(0x21B5);
        case '\r':
            return QChar(0x240D);
        default:
            return QChar(0x00B0);
        }
    };
    for (int i = 0; i < text.size(); ++i) {
        if (text.at(i).isSpace()) {
            text[i] = markOf(text.at(i));
        }
    }
    return text;
}

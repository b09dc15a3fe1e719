// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QByteArray>
#include <QCoreApplication>
#include <QPoint>
#include <QString>
#include <QtGlobal>

#include <optional>

#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
#include <QTextCodec>
#else
#include <QStringConverter>
#endif

// What Qt 5 and Qt 6 name differently, under one name: the only place that asks for Qt's version.
// Templates take the event or the view, so that this header needs Qt's Core alone.
//
// Threads: the functions of text may be called from any thread, the others belong to the GUI
// thread.
namespace QtDifferences {

// Events and views -----------------------------------------------------------------------------

// Where a mouse stands, in the coordinates of the widget that receives the event.
template <typename MouseEvent>
QPointF mousePosition(const MouseEvent& event)
{
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    return event.localPos();
#else
    return event.position();
#endif
}

// The same on the screen.
template <typename MouseEvent>
QPoint mouseOnScreen(const MouseEvent& event)
{
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    return event.globalPos();
#else
    return event.globalPosition().toPoint();
#endif
}

// Where something is dragged or dropped, in the coordinates of the widget below.
template <typename DropEvent>
QPoint dropPosition(const DropEvent& event)
{
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    return event.pos();
#else
    return event.position().toPoint();
#endif
}

template <typename TouchEvent>
int fingers(const TouchEvent& event)
{
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    return event.touchPoints().size();
#else
    return int(event.points().size());
#endif
}

// Where the first of the fingers, of which there is one at least, stands on the screen.
template <typename TouchEvent>
QPoint fingerOnScreen(const TouchEvent& event)
{
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    return event.touchPoints().first().screenPos().toPoint();
#else
    return event.points().first().globalPosition().toPoint();
#endif
}

// The key with its modifiers, as an entry of a QKeySequence holds them.
template <typename Entry>
unsigned keyCode(Entry entry)
{
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    return unsigned(entry);
#else
    return unsigned(entry.toCombined());
#endif
}

// Whether QIcon asks its engine for pixels instead of sizes on the screen: with Qt 5 where the
// host's application wants it so.
inline bool iconsAskForPixels()
{
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    return QCoreApplication::testAttribute(Qt::AA_UseHighDpiPixmaps);
#else
    return true;
#endif
}

// How a view paints its rows: rowOption<QStyleOptionViewItem>(view).
template <typename Option, typename View>
Option rowOption(const View& view)
{
    // What a view tells to those that derive from it only.
    struct Access : View
    {
        static Option of(const View& view)
        {
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
            return (view.*(&Access::viewOptions))();
#else
            Option option;
            (view.*(&Access::initViewItemOption))(&option);
            return option;
#endif
        }
    };
    return Access::of(view);
}

// Text in an encoding --------------------------------------------------------------------------

struct DecodedText
{
    QString text;
    bool hasFaults = false; // Some bytes stand for no character.
    bool isCut = false;     // The last character is not complete; it is left out of the text.
};

// A mark of the byte order is a character as any other.
inline DecodedText decodeUtf8(const char* bytes, int size)
{
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    constexpr int kUtf8Mib = 106;
    QTextCodec::ConverterState state(QTextCodec::IgnoreHeader);
    const QString text = QTextCodec::codecForMib(kUtf8Mib)->toUnicode(bytes, size, &state);
    return {text, state.invalidChars > 0, state.remainingChars > 0};
#else
    struct Decoder : QStringDecoder
    {
        using QStringDecoder::QStringDecoder;
        bool isCut() const { return state.remainingChars > 0; }
    };
    Decoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::ConvertInitialBom);
    const QString text = decoder(QByteArrayView(bytes, size));
    return {text, decoder.hasError(), decoder.isCut()};
#endif
}

// By the encoding's name ("GB18030"), without a mark of the byte order; nothing when there is no
// such encoding. Qt 6 knows those that ICU knows.
inline std::optional<QString> decode(const QByteArray& encoding, const QByteArray& bytes)
{
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    const QTextCodec* codec = QTextCodec::codecForName(encoding);
    return codec ? std::make_optional(codec->toUnicode(bytes)) : std::nullopt;
#else
    // Without a name ICU would take an encoding of its own choice.
    QStringDecoder decoder(encoding.isEmpty() ? "none" : encoding.constData());
    return decoder.isValid() ? std::make_optional(QString(decoder(bytes))) : std::nullopt;
#endif
}

} // namespace QtDifferences

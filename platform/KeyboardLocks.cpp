// Asks the X Keyboard Extension (X Consortium standard, protocol 1.0) for the indicators of the
// locks, over the toolkit's own connection: the extension and its library are in use there anyway.
#include "platform/KeyboardLocks.h"

#include <QGuiApplication>
#include <cstdlib>
#include <memory>
#include <string_view>
#include <utility>

#include <xcb/xcb.h>
// The header names a field by a word that this language keeps for itself.
QT_WARNING_PUSH
QT_WARNING_DISABLE_CLANG("-Wkeyword-macro")
#define explicit explicitModifiers
#include <xcb/xkb.h>
#undef explicit
QT_WARNING_POP

namespace {

struct FreeReply
{
    void operator()(void *reply) const { std::free(reply); }
};

template<class Reply>
std::unique_ptr<Reply, FreeReply> own(Reply *reply)
{
    return std::unique_ptr<Reply, FreeReply>(reply);
}

// The names that keyboard descriptions give to the indicators.
constexpr std::array<std::string_view, 3> LockNames = {"Num Lock", "Caps Lock", "Scroll Lock"};

} // namespace

KeyboardLocks::KeyboardLocks() : Read([this] { return readIndicators(); }) {}

void KeyboardLocks::readFrom(Reader reader)
{
    Read = std::move(reader);
}

void KeyboardLocks::refresh()
{
    if (!FirstEvent)
        listen();
    if (std::exchange(Seen, Read()) != Seen)
        emit Changed();
}

void KeyboardLocks::listen()
{
    // The headless platform has this interface too, without a keyboard behind it.
    const auto *x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    if (!x11 || QGuiApplication::platformName() != "xcb")
        return;
    xcb_connection_t *connection = x11->connection();
    const xcb_query_extension_reply_t *extension = xcb_get_extension_data(connection, &xcb_xkb_id);
    if (!extension || !extension->present)
        return;
    FirstEvent = extension->first_event;
    Connection = connection;

    std::array<xcb_intern_atom_cookie_t, LockNames.size()> asked{};
    for (std::size_t i = 0; i < asked.size(); ++i)
        asked[i] = xcb_intern_atom(connection, 0, static_cast<quint16>(LockNames[i].size()),
                                   LockNames[i].data());
    for (std::size_t i = 0; i < asked.size(); ++i)
        if (const auto atom = own(xcb_intern_atom_reply(connection, asked[i], nullptr)))
            IndicatorNames[i] = atom->atom;
    constexpr quint16 indicators = XCB_XKB_EVENT_TYPE_INDICATOR_STATE_NOTIFY;
    xcb_xkb_select_events(connection, XCB_XKB_ID_USE_CORE_KBD, indicators, 0, indicators, 0, 0,
                          nullptr);
    qGuiApp->installNativeEventFilter(this);
}

std::optional<LockState> KeyboardLocks::readIndicators() const
{
    if (!Connection)
        return std::nullopt;
    // All three questions go out before the first answer is waited for.
    std::array<xcb_xkb_get_named_indicator_cookie_t, LockNames.size()> asked{};
    for (std::size_t i = 0; i < asked.size(); ++i)
        asked[i] = xcb_xkb_get_named_indicator(Connection, XCB_XKB_ID_USE_CORE_KBD,
                                               XCB_XKB_LED_CLASS_DFLT_XI_CLASS,
                                               XCB_XKB_ID_DFLT_XI_ID, IndicatorNames[i]);
    std::array<bool, LockNames.size()> on{};
    bool told = false;
    for (std::size_t i = 0; i < asked.size(); ++i) {
        const auto reply = own(xcb_xkb_get_named_indicator_reply(Connection, asked[i], nullptr));
        told = told || reply;
        on[i] = reply && reply->found && reply->on;
    }
    if (!told)
        return std::nullopt;
    return LockState{.Num = on[0], .Caps = on[1], .Scroll = on[2]};
}

bool KeyboardLocks::nativeEventFilter(const QByteArray &eventType, void *message, qintptr *)
{
    if (eventType == "xcb_generic_event_t") {
        const auto *event = static_cast<const xcb_xkb_indicator_state_notify_event_t *>(message);
        constexpr int sentByClient = 0x80; // a bit beside the type
        if ((event->response_type & ~sentByClient) == FirstEvent &&
            event->xkbType == XCB_XKB_INDICATOR_STATE_NOTIFY)
            refresh();
    }
    return false;
}

// The lock keys of the keyboard, as the window system tells of them. X11 does; of any other window
// system, and of none, nothing is known. Knows no window of ours.
#pragma once

#include <QAbstractNativeEventFilter>
#include <QObject>
#include <array>
#include <functional>
#include <optional>

struct xcb_connection_t;

/// Which locks are on.
struct LockState
{
    bool Num = false;
    bool Caps = false;
    bool Scroll = false;

    bool operator==(const LockState &) const = default;
};

class KeyboardLocks : public QObject, private QAbstractNativeEventFilter
{
    Q_OBJECT

public:
    /// Gives the state of now, or nothing where it is not told.
    using Reader = std::function<std::optional<LockState>()>;

    /// Nothing is asked and nothing listened to before the first refresh().
    KeyboardLocks();

    /// As last read; nothing if it is not known.
    const std::optional<LockState> &state() const { return Seen; }
    /// Reads the state again. From the first call on a lock key that is pressed, in whatever
    /// window, does so too.
    void refresh();
    /// Reads from elsewhere than from the window system, so that a test depends on no keyboard.
    void readFrom(Reader reader);

signals:
    /// The state is another one than before.
    void Changed();

protected:
    bool nativeEventFilter(const QByteArray &eventType, void *message, qintptr *result) override;

private:
    void listen();
    std::optional<LockState> readIndicators() const;

    Reader Read;
    std::optional<LockState> Seen;
    xcb_connection_t *Connection = nullptr;  ///< the toolkit's own; null without X11
    std::array<quint32, 3> IndicatorNames{}; ///< atoms of the locks, in the order of LockState
    int FirstEvent = 0;                      ///< of the keyboard extension
};

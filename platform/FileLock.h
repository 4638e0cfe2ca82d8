// An advisory lock on an open file, by which running copies of the program keep out of each other's
// way. Other programs need not look at it.
#pragma once

#include <QString>
#include <utility>

class FileLock
{
public:
    /// Holds nothing.
    FileLock() = default;
    FileLock(FileLock &&other) noexcept
        : Descriptor(std::exchange(other.Descriptor, -1)), Held(std::exchange(other.Held, false))
    {
    }
    FileLock &operator=(FileLock &&other) noexcept
    {
        std::swap(Descriptor, other.Descriptor);
        std::swap(Held, other.Held);
        return *this;
    }
    ~FileLock() { release(); }

    /// For reading: others may read as well. The path is a text as FileName makes it.
    static FileLock shared(const QString &path) { return FileLock(path, false); }
    /// For writing: nobody else may hold a lock.
    static FileLock exclusive(const QString &path) { return FileLock(path, true); }

    /// False if somebody else's lock stands against it, without waiting for it to go. Where there
    /// is no file, or none that can be locked, nobody's can.
    bool isHeld() const { return Held; }
    void release();

private:
    FileLock(const QString &path, bool alone);

    int Descriptor = -1; ///< stays open as long as the lock is held
    bool Held = false;
};

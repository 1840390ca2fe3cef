#pragma once

#include "vesta/Export.h"
#include "vesta/Mutex.h"

#include <functional>
#include <memory>
#include <utility>
#include <vector>

class HasSlots;

/// Thread policy of a signal that has a lock of its own, held while it connects, disconnects and
/// emits. Once `Disconnect` has returned, on whichever thread, the slot does not run any more.
struct LocalThreaded
{
};

/// What signal and holder share of one another; outlives either.
class TOLVAN_API _SignalCore
{
public:
    virtual ~_SignalCore();
    /// Ends the holder's connections. While a slot runs, on this thread then, the holder keeps this
    /// core among its own until the emission is over: whoever destroys it on another thread waits.
    virtual void Disconnect(HasSlots* holder) = 0;
    /// The same for a holder that is being destroyed: nothing here points to it afterwards.
    void Forget(HasSlots* holder);

    Mutex m_Lock; ///< Held before any holder's own lock, never behind it.

protected:
    /// Marks an emission while it lives.
    class TOLVAN_API Emission
    {
    public:
        explicit Emission(_SignalCore& core) : m_Core(core) { ++core.m_Emissions; }
        ~Emission();
        Emission(const Emission&) = delete;
        Emission& operator=(const Emission&) = delete;

    private:
        _SignalCore& m_Core;
    };

    virtual bool IsConnected(const HasSlots* holder) const = 0;
    void         Leave(HasSlots* holder);

private:
    int                    m_Emissions = 0; ///< Those running; nested ones count each.
    std::vector<HasSlots*> m_Leaving;       ///< Disconnected while a slot was running.
};

/// Base of classes whose member functions are connected to signals. All its connections end when
/// it is destroyed. A class whose slots run on other threads must call `DisconnectAll` in its own
/// destructor: here, its members would be gone already. Both wait for a slot that runs on another
/// thread, so neither may be called under a lock that a slot takes.
class TOLVAN_API HasSlots
{
public:
    HasSlots();
    virtual ~HasSlots();
    HasSlots(const HasSlots&) = delete;
    HasSlots& operator=(const HasSlots&) = delete;

    void DisconnectAll();
    /// Signals that this object is connected to, or was when one that still runs began to emit.
    size_t ConnectionCount() const;

    void _Joined(const std::shared_ptr<_SignalCore>& core); ///< For signals only.
    void _Left(const _SignalCore* core);                    ///< For signals only.

private:
    std::vector<std::shared_ptr<_SignalCore>> Signals() const;

    mutable Mutex                             m_SlotsLock;
    std::vector<std::shared_ptr<_SignalCore>> m_Signals;
};

/// One slot of a signal with the arguments `Args`.
template <class... Args> struct _Connection
{
    HasSlots*                    holder = nullptr; ///< Null once disconnected.
    std::function<void(Args...)> slot;
};

template <class... Args> class _Core final : public _SignalCore
{
public:
    void Disconnect(HasSlots* holder) override;
    void Emit(Args... args);
    bool IsConnected(const HasSlots* holder) const override;

    /// Connections live on the heap so that they survive an emission that disconnects them.
    std::vector<std::shared_ptr<_Connection<Args...>>> m_Connections;
};

/// A signal with the arguments `Args`: calls every connected slot in the order of connection, on
/// the thread that emits. A slot may connect, disconnect or destroy its holder or the signal while
/// the signal is being emitted; a slot connected meanwhile is called from the next emission on.
/// Any thread may use it.
template <class Policy, class... Args> class _Signal
{
public:
    using Connection = _Connection<Args...>;

    _Signal() : m_Core(std::make_shared<_Core<Args...>>()) {}
    ~_Signal() { DisconnectAll(); }
    _Signal(const _Signal&) = delete;
    _Signal& operator=(const _Signal&) = delete;

    /// Calls a member function of `holder`, which must not be null.
    template <class Holder, class Base> void Connect(Holder* holder, void (Base::*slot)(Args...))
    {
        Connect(holder,
                [holder, slot](Args... args) { (holder->*slot)(std::forward<Args>(args)...); });
    }
    /// Calls `slot` until `holder` is disconnected or destroyed; a null holder or an empty slot
    /// connects nothing.
    void Connect(HasSlots* holder, std::function<void(Args...)> slot)
    {
        if (!holder || !slot)
        {
            return;
        }
        const MutexLock lock(m_Core->m_Lock);
        auto            connection = std::make_shared<Connection>();
        connection->holder = holder;
        connection->slot = std::move(slot);
        m_Core->m_Connections.push_back(std::move(connection));
        holder->_Joined(m_Core);
    }

    void Disconnect(HasSlots* holder) { m_Core->Disconnect(holder); }
    void DisconnectAll()
    {
        const MutexLock lock(m_Core->m_Lock);
        while (!m_Core->m_Connections.empty())
        {
            m_Core->Disconnect(m_Core->m_Connections.back()->holder);
        }
    }
    size_t SlotCount() const
    {
        const MutexLock lock(m_Core->m_Lock);
        return m_Core->m_Connections.size();
    }

    void Emit(Args... args)
    {
        // Kept alive here: a slot may destroy the signal.
        const std::shared_ptr<_Core<Args...>> core = m_Core;
        core->Emit(args...);
    }
    void operator()(Args... args) { Emit(args...); }

private:
    std::shared_ptr<_Core<Args...>> m_Core;
};

template <class... Args> void _Core<Args...>::Disconnect(HasSlots* holder)
{
    const MutexLock lock(m_Lock);
    bool            found = false;
    for (size_t i = m_Connections.size(); i-- > 0;)
    {
        if (m_Connections[i]->holder == holder)
        {
            m_Connections[i]->holder = nullptr;
            m_Connections.erase(m_Connections.begin() + static_cast<std::ptrdiff_t>(i));
            found = true;
        }
    }
    if (found)
    {
        Leave(holder);
    }
}

template <class... Args> bool _Core<Args...>::IsConnected(const HasSlots* holder) const
{
    for (const auto& connection : m_Connections)
    {
        if (connection->holder == holder)
        {
            return true;
        }
    }
    return false;
}

template <class... Args> void _Core<Args...>::Emit(Args... args)
{
    const MutexLock lock(m_Lock);
    const Emission  emission(*this);
    const auto      connections = m_Connections;
    for (const auto& connection : connections)
    {
        if (connection->holder)
        {
            connection->slot(args...);
        }
    }
}

/// A signal without arguments, and its connection.
template <class Policy = LocalThreaded> using Signal0 = _Signal<Policy>;
/// A signal with one argument.
template <class Arg, class Policy = LocalThreaded> using Signal1 = _Signal<Policy, Arg>;
using Connection0 = _Connection<>;
template <class Arg> using Connection1 = _Connection<Arg>;

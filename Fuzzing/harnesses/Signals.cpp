// SPDX-License-Identifier: MIT
#include "Fuzzing.h"
#include "SignalOracle.h"

#include <ZarnCore/utils/Signal.h>
#include <support/Random.h>

#include <array>
#include <map>
#include <memory>
#include <stdexcept>
#include <utility>

namespace {

using fuzz::expect;

struct Ping {
    int value;
};

/// A signal and the oracle beside it; the input says what is done, also what listeners do when they
/// are called and what dies with their callables.
class Game {
public:
    explicit Game(std::string_view input) : _random(input) { }

    void play()
    {
        while (!_random.isUsedUp())
            act();
        // Everything that is connected is called once more, in order.
        _isQuiet = true;
        _signal->setBlocked(false);
        _oracle.setBlocked(false);
        emit();
        end();
    }

private:
    /// Marks a call into the signal. When the outermost one ends, the requests are applied.
    class Call {
    public:
        explicit Call(Game &game) : _game(game) { ++game._calls; }
        ~Call()
        {
            if (--_game._calls == 0)
                _game.settle();
        }
        Call(const Call &) = delete;
        Call &operator=(const Call &) = delete;

    private:
        Game &_game;
    };

    /// What a callable owns: it dies with it, and says so.
    class Owned {
    public:
        Owned(Game &game, int id) : _game(game), _id(id) { ++_game._alive; }
        ~Owned() { _game.destroyed(_id); }
        Owned(const Owned &) = delete;
        Owned &operator=(const Owned &) = delete;

    private:
        Game &_game;
        int _id;
    };

    struct Listener {
        Game *game;
        int id;
        std::unique_ptr<Owned> owned;
        void operator()(const Ping &ping) const { game->called(id, ping); }
    };

    void act()
    {
        switch (_random.below(8)) {
        case 0:
        case 1:
            connect(static_cast<int>(_random.below(sharedObjects)));
            break;
        case 2:
            disconnect(static_cast<int>(_random.below(sharedObjects)));
            break;
        case 3:
            endSomeScope();
            break;
        case 4: {
            const bool isBlocked = _random.percent(30);
            _oracle.setBlocked(isBlocked);
            _signal->setBlocked(isBlocked);
            break;
        }
        case 5:
            moveSomeScope();
            break;
        default:
            emit();
        }
    }

    void connect(int object)
    {
        const int id = _nextId++;
        const int priority = _random.between(-2, 2);
        const bool isScoped = _random.coin();
        if (!_isDying)
            _oracle.connect({id, object, priority});
        const Call call(*this);
        Listener listener{this, id, std::make_unique<Owned>(*this, id)};
        int *const identity = &_objects[static_cast<std::size_t>(object)];
        if (isScoped)
            _scopes[id] = _signal->connectScoped(identity, std::move(listener), priority);
        else
            _signal->connect(identity, std::move(listener), priority);
    }

    void disconnect(int object)
    {
        _oracle.disconnect(object);
        const Call call(*this);
        _signal->disconnect(&_objects[static_cast<std::size_t>(object)]);
    }

    void endSomeScope()
    {
        if (_scopes.empty())
            return;
        auto scope = _scopes.begin();
        std::advance(scope, _random.below(_scopes.size()));
        _oracle.silence(scope->first);
        const Call call(*this);
        utils::ScopedConnection connection = std::move(scope->second);
        _scopes.erase(scope);
        if (_random.coin())
            connection.reset();
    }

    /// One scope takes the place of another, whose connection ends.
    void moveSomeScope()
    {
        if (_scopes.size() < 2)
            return;
        const auto from = _scopes.begin();
        const auto to = std::prev(_scopes.end());
        _oracle.silence(to->first);
        const Call call(*this);
        utils::ScopedConnection taken = std::move(from->second);
        const int id = from->first;
        utils::ScopedConnection replaced = std::move(to->second);
        _scopes.erase(to);
        _scopes.erase(id);
        replaced = std::move(taken);
        _scopes[id] = std::move(replaced);
    }

    void emit()
    {
        if (_oracle.depth() >= maximumDepth || _isDying)
            return;
        const bool isCaught = _random.coin() || _oracle.depth() == 0 || _isInDestructor;
        const int value = static_cast<int>(_oracle.depth());
        const Call call(*this);
        _oracle.beginEmission(_isInDestructor);
        try {
            _signal->notify(&_senders[_oracle.depth()], Ping{value});
        } catch (const std::runtime_error &) {
            _oracle.endEmission(true);
            if (!isCaught)
                throw;
            return;
        }
        _oracle.endEmission(false);
    }

    void called(int id, const Ping &ping)
    {
        _oracle.call(id);
        expect(ping.value + 1 == static_cast<int>(_oracle.depth()), "the event is delivered");
        expect(_signal->isEmitting(), "a signal knows that it is emitting");
        expect(_signal->currentSender() == &_senders[_oracle.depth()],
               "the sender is that of the innermost emission");
        if (_isQuiet || _isInDestructor)
            return;
        for (unsigned count = _random.below(4); count > 0; --count)
            act();
        if (_random.percent(10))
            throw std::runtime_error("a listener fails");
    }

    /// A callable has died: in a request that is being applied, or with the signal.
    void destroyed(int id)
    {
        --_alive;
        if (_isQuiet || _isInDestructor)
            return;
        const bool was = std::exchange(_isInDestructor, true);
        const auto scope = _scopes.find(id);
        if (scope != _scopes.end() && _random.coin()) {
            _oracle.silence(id);
            _scopes.erase(scope);
        }
        switch (_random.below(6)) {
        case 0:
            disconnectFromDestructor();
            break;
        case 1:
            // An object of its own: what else was asked for it has no say.
            if (_nextOwn < _objects.size())
                connect(static_cast<int>(_nextOwn++));
            break;
        case 2:
            endSomeScope();
            break;
        case 3:
            emit();
            break;
        default:
            break;
        }
        _isInDestructor = was;
    }

    /// Not of an object that is about to be connected: which of both comes first is not promised.
    void disconnectFromDestructor()
    {
        const int object = static_cast<int>(_random.below(sharedObjects));
        if (!_oracle.isPending(object))
            disconnect(object);
    }

    void settle()
    {
        if (_isDying)
            return;
        _oracle.settle();
        expect(!_signal->isEmitting(), "an emission ends");
        expect(_signal->currentSender() == nullptr, "without an emission there is no sender");
        if (_signal->connectionCount() != _oracle.connectionCount())
            fuzz::breakLaw("requests are applied when the outermost emission ends",
                           "connections expected: " + std::to_string(_oracle.connectionCount())
                               + ", found: " + std::to_string(_signal->connectionCount()));
    }

    /// The signal dies before the connections that are kept, or after some of them.
    void end()
    {
        _isQuiet = false;
        while (!_scopes.empty() && _random.coin())
            endSomeScope();
        _isDying = true;
        _storage.reset(); // what dies with it may still call it, by the pointer that it has
        for (const auto &[id, scope] : _scopes)
            expect(!scope.isConnected(), "nothing is connected to a signal that is gone");
        _scopes.clear();
        expect(_alive == 0, "every callable dies once");
    }

    static constexpr std::size_t sharedObjects = 6;
    static constexpr std::size_t maximumDepth = 4;

    Random _random;
    fuzz::SignalOracle _oracle;
    std::array<int, 64> _objects = {};
    std::array<int, maximumDepth + 2> _senders = {};
    std::size_t _nextOwn = sharedObjects;
    std::unique_ptr<utils::Signal<Ping>> _storage = std::make_unique<utils::Signal<Ping>>();
    utils::Signal<Ping> *_signal = _storage.get();
    std::map<int, utils::ScopedConnection> _scopes;
    int _nextId = 0;
    int _alive = 0;
    int _calls = 0;
    bool _isQuiet = false;
    bool _isInDestructor = false;
    bool _isDying = false;
};

} // namespace

/// The input says what is done with a signal.
void fuzz::check(std::string_view input)
{
    Game(input).play();
}

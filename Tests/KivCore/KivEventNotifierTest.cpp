#include "KivCore/KivEventNotifier.h"

#include "Platform/Foundation/Foundation.h"

#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <set>
#include <string>
#include <vector>

namespace {

using namespace Foundation;
using namespace KivCore;

using Story = std::vector<std::string>;

class Spectator : public Adopting<NSObject, PlayerEventObserver> {
public:
    static const Class& classObject() {
        static const Class& object = ClassBuilder<Spectator, NSObject>("Tests.Spectator")
                                         .method<&Spectator::onSeekBegan>("onSeekBegan")
                                         .method<&Spectator::willHandleUrl>("willHandleUrl:")
                                         .build();
        return object;
    }

    using NSObject::init;
    bool init(Story& story, const std::string& name) {
        story_ = &story;
        name_ = name;
        return NSObject::init();
    }

    void onSeekBegan() { story_->push_back(name_ + " onSeekBegan"); }
    void willHandleUrl(const std::string& url) { story_->push_back(name_ + " willHandleUrl: " + url); }

    const std::string& name() const { return name_; }

private:
    Story* story_ = nullptr;
    std::string name_;
};

/// Counts the blocks of memory that objects made with it still take.
template <class T>
class CountingAllocator : public ObjectAllocator<T> {
public:
    template <class U>
    struct rebind {
        using other = CountingAllocator<U>;
    };

    explicit CountingAllocator(int& taken) : taken_(&taken) {}
    template <class U>
    CountingAllocator(const CountingAllocator<U>& other) : taken_(other.taken_) {}

    T* allocate(std::size_t count) {
        ++*taken_;
        return ObjectAllocator<T>::allocate(count);
    }
    void deallocate(T* block, std::size_t count) {
        --*taken_;
        ObjectAllocator<T>::deallocate(block, count);
    }

private:
    template <class U>
    friend class CountingAllocator;

    int* taken_;
};

class KivEventNotifierTest : public testing::Test {
protected:
    std::shared_ptr<Spectator> add(const std::string& name) {
        const auto spectator = make<Spectator>(story, name);
        notifier->addObserver(spectator);
        return spectator;
    }

    /// An observer whose memory counts as `taken`.
    std::shared_ptr<Spectator> addCounted() {
        auto spectator = std::allocate_shared<Spectator>(CountingAllocator<Spectator>(taken));
        spectator->init(story, "counted");
        notifier->addObserver(spectator);
        return spectator;
    }

    static const std::string& nameOf(const std::shared_ptr<PlayerEventObserver>& observer) {
        return static_cast<Spectator&>(observer->asObject()).name();
    }

    Story called() {
        Story names;
        notifier->notifyObservers([&names](const auto& observer) { names.push_back(nameOf(observer)); });
        return names;
    }

    Story story;
    int taken = 0;
    std::shared_ptr<KivEventNotifier> notifier = make<KivEventNotifier>();
};

TEST_F(KivEventNotifierTest, CallsEachObserverAtOnceInTheOrderOfAdding) {
    const auto a = add("a");
    const auto b = add("b");
    const auto c = add("c");
    EXPECT_EQ(called(), (Story{"a", "b", "c"}));
}

TEST_F(KivEventNotifierTest, WithoutObserversNothingIsCalled) { EXPECT_EQ(called(), Story()); }

TEST_F(KivEventNotifierTest, AnObserverThatIsAddedAgainStaysWhereItIsAndIsCalledOnce) {
    const auto a = add("a");
    const auto b = add("b");
    notifier->addObserver(a);
    EXPECT_EQ(called(), (Story{"a", "b"}));
}

TEST_F(KivEventNotifierTest, NothingIsNoObserver) {
    notifier->addObserver(nullptr);
    notifier->removeObserver(nullptr);
    EXPECT_EQ(called(), Story());
}

TEST_F(KivEventNotifierTest, ARemovedObserverIsNotCalled) {
    const auto a = add("a");
    const auto b = add("b");
    notifier->removeObserver(a);
    notifier->removeObserver(a);
    EXPECT_EQ(called(), Story{"b"});
    notifier->addObserver(a);
    EXPECT_EQ(called(), (Story{"b", "a"}));
}

TEST_F(KivEventNotifierTest, HoldsItsObserversWeakly) {
    auto a = add("a");
    const auto b = add("b");
    EXPECT_EQ(a.use_count(), 1);
    a = nullptr;
    EXPECT_EQ(called(), Story{"b"});
}

TEST_F(KivEventNotifierTest, AddingForgetsTheObserversThatHaveGone) {
    for (int index = 0; index < 10; ++index) {
        addCounted();
    }
    const auto last = add("last");
    EXPECT_EQ(taken, 0);
    EXPECT_EQ(called(), Story{"last"});
}

TEST_F(KivEventNotifierTest, NotifyingForgetsTheObserversThatHaveGone) {
    std::vector<std::shared_ptr<Spectator>> spectators{addCounted(), addCounted(), addCounted()};
    spectators.erase(spectators.begin(), spectators.begin() + 2);
    EXPECT_EQ(taken, 3);
    EXPECT_EQ(called(), Story{"counted"});
    EXPECT_EQ(taken, 1);
    notifier->removeObserver(spectators.front());
    spectators.clear();
    EXPECT_EQ(taken, 0);
}

TEST_F(KivEventNotifierTest, ForgettingThoseGoneInsideANotificationLeavesOutNobody) {
    const auto a = add("a");
    auto gone = addCounted();
    const auto b = add("b");
    std::shared_ptr<Spectator> late;
    Story names;
    notifier->notifyObservers([&](const auto& observer) {
        names.push_back(nameOf(observer));
        gone = nullptr;
        late = late ? late : add("late");
        EXPECT_EQ(called(), (Story{"a", "b", "late"}));
    });
    EXPECT_EQ(names, (Story{"a", "b"}));
    EXPECT_EQ(taken, 0);
}

TEST_F(KivEventNotifierTest, AnObserverThatIsAddedMeanwhileIsCalledNextTime) {
    const auto a = add("a");
    std::shared_ptr<Spectator> late;
    Story names;
    notifier->notifyObservers([&](const auto& observer) {
        names.push_back(nameOf(observer));
        late = late ? late : add("late");
    });
    EXPECT_EQ(names, Story{"a"});
    EXPECT_EQ(called(), (Story{"a", "late"}));
}

TEST_F(KivEventNotifierTest, AnObserverThatIsRemovedOrEndsMeanwhileIsNotCalled) {
    const auto a = add("a");
    const auto b = add("b");
    auto c = add("c");
    const auto d = add("d");
    Story names;
    notifier->notifyObservers([&](const auto& observer) {
        names.push_back(nameOf(observer));
        notifier->removeObserver(a);
        notifier->removeObserver(b);
        c = nullptr;
    });
    EXPECT_EQ(names, (Story{"a", "d"}));
}

TEST_F(KivEventNotifierTest, AnObserverMayEndWhileItIsCalled) {
    auto a = add("a");
    const std::weak_ptr<Spectator> present = a;
    notifier->notifyObservers([&](const auto& observer) {
        a = nullptr;
        EXPECT_EQ(nameOf(observer), "a");
    });
    EXPECT_TRUE(present.expired());
}

TEST_F(KivEventNotifierTest, TheNotifierMayEndWhileItCalls) {
    const auto a = add("a");
    const auto b = add("b");
    Story names;
    notifier->notifyObservers([&](const auto& observer) {
        notifier = nullptr;
        names.push_back(nameOf(observer));
    });
    EXPECT_EQ(names, (Story{"a", "b"}));
}

TEST_F(KivEventNotifierTest, TheNotifierMayBeUsedWhileItCalls) {
    const auto a = add("a");
    const auto b = add("b");
    Story names;
    notifier->notifyObservers([&](const auto&) {
        for (const std::string& name : called()) {
            names.push_back(name);
        }
    });
    EXPECT_EQ(names, (Story{"a", "b", "a", "b"}));
}

TEST_F(KivEventNotifierTest, AnOperationGoesToThoseThatRespond) {
    const auto a = add("a");
    notifier->notify("onSeekBegan");
    notifier->notify("onSeekEnd");
    notifier->notify("willHandleUrl:", std::string("film.mkv"));
    EXPECT_EQ(story, (Story{"a onSeekBegan", "a willHandleUrl: film.mkv"}));
}

TEST_F(KivEventNotifierTest, IsReachedByName) {
    const Class& object = KivEventNotifier::classObject();
    EXPECT_EQ(object.name(), "KivCore.KivEventNotifier");
    std::set<std::string> names;
    for (const SEL selector : object.selectors()) {
        names.emplace(selector.name());
    }
    EXPECT_EQ(names, (std::set<std::string>{"init", "addObserver:", "removeObserver:", "notifyObservers:"}));

    const auto a = make<Spectator>(story, "a");
    notifier->send("addObserver:", a);
    Story called;
    notifier->send("notifyObservers:", KivEventNotifier::Closure([&called](const auto& observer) {
                       called.push_back(nameOf(observer));
                   }));
    EXPECT_EQ(called, Story{"a"});
    notifier->send("removeObserver:", a);
    notifier->send("notifyObservers:", KivEventNotifier::Closure([&called](const auto& observer) {
                       called.push_back(nameOf(observer));
                   }));
    EXPECT_EQ(called, Story{"a"});
}

} // namespace

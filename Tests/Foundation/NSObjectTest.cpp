#include "Platform/Foundation/Foundation.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

namespace {

using namespace Foundation;
using testing::ElementsAre;

std::vector<std::string> events;

class Door : public NSObject {
public:
    static const Class& classObject() {
        static const Class& object =
            ClassBuilder<Door, NSObject>("NSObjectTest.Door").method<&Door::close>("close").build();
        return object;
    }

    ~Door() override { events.push_back("~Door"); }

    using NSObject::init;
    virtual bool init(bool fits) {
        events.push_back("init of " + kindOfDoor());
        return fits;
    }

    virtual std::string kindOfDoor() const { return "a door"; }
    virtual void close() { events.push_back("close a door"); }
    std::shared_ptr<Door> own() { return self(this); }

protected:
    void dealloc() override {
        EXPECT_TRUE(weak_from_this().expired());
        events.push_back("dealloc of " + kindOfDoor());
        close();
        NSObject::dealloc();
    }
};

class TrapDoor : public Door {
public:
    static const Class& classObject() {
        static const Class& object = ClassBuilder<TrapDoor, Door>("NSObjectTest.TrapDoor").build();
        return object;
    }

    ~TrapDoor() override { events.push_back("~TrapDoor"); }

    std::string kindOfDoor() const override { return "a trap door"; }
    void close() override { events.push_back("close a trap door of " + *material_); }

private:
    std::unique_ptr<std::string> material_ = std::make_unique<std::string>("oak");
};

// Without a class object of its own.
class ApplicationsDoor : public TrapDoor {
public:
    std::string kindOfDoor() const override { return "an application's door"; }
};

class Window : public NSObject {
public:
    static const Class& classObject() {
        static const Class& object = ClassBuilder<Window, NSObject>("NSObjectTest.Window").build();
        return object;
    }
};

class NSObjectTest : public testing::Test {
protected:
    void SetUp() override { events.clear(); }
};

TEST_F(NSObjectTest, AnInitializerRunsOverriddenOperations) {
    const auto door = make<TrapDoor>(true);
    ASSERT_NE(door, nullptr);
    EXPECT_THAT(events, ElementsAre("init of a trap door"));
}

TEST_F(NSObjectTest, AnInitializerMayYieldNothing) {
    EXPECT_EQ(make<TrapDoor>(false), nullptr);
    EXPECT_THAT(events, ElementsAre("init of a trap door", "dealloc of a trap door",
                                    "close a trap door of oak", "~TrapDoor", "~Door"));
}

TEST_F(NSObjectTest, TearDownRunsOnceAndBeforeDestructionAsTheWholeObject) {
    std::shared_ptr<Door> door = make<TrapDoor>();
    std::shared_ptr<NSObject> second = door;
    door.reset();
    EXPECT_THAT(events, ElementsAre());
    second.reset();
    EXPECT_THAT(events,
                ElementsAre("dealloc of a trap door", "close a trap door of oak", "~TrapDoor", "~Door"));
}

TEST_F(NSObjectTest, TearDownRunsTheOverrideOfAClassWithoutATable) {
    make<ApplicationsDoor>();
    EXPECT_EQ(events.front(), "dealloc of an application's door");
}

TEST_F(NSObjectTest, TearDownRunsForAnObjectThatWasOnlyAllocated) {
    allocate<Door>();
    EXPECT_THAT(events, ElementsAre("dealloc of a door", "close a door", "~Door"));
}

TEST_F(NSObjectTest, TearDownMaySendMessagesToTheObject) {
    class Sender : public Door {
    public:
        void close() override {
            events.push_back(respondsToSelector("close") ? "reachable" : "not reachable");
        }
    };
    make<Sender>();
    EXPECT_EQ(events[1], "reachable");
}

TEST_F(NSObjectTest, AWeakReferenceIsGoneOnceTearDownBegins) {
    std::weak_ptr<Door> weak;
    bool wasGone = false;
    class Observed : public Door {
    public:
        void close() override { *wasGone = weak->expired(); }
        std::weak_ptr<Door>* weak = nullptr;
        bool* wasGone = nullptr;
    };
    {
        const auto door = make<Observed>();
        door->weak = &weak;
        door->wasGone = &wasGone;
        weak = door;
        EXPECT_EQ(weak.lock(), door);
    }
    EXPECT_TRUE(wasGone);
}

TEST_F(NSObjectTest, AnObjectRefersToItself) {
    const auto door = make<TrapDoor>();
    EXPECT_EQ(door->own(), door);
    EXPECT_EQ(door.use_count(), 1);
}

TEST_F(NSObjectTest, AnObjectIsOfItsClassAndItsSuperclasses) {
    const auto door = make<TrapDoor>();
    EXPECT_EQ(&door->isa(), &TrapDoor::classObject());
    EXPECT_TRUE(door->isKindOfClass(TrapDoor::classObject()));
    EXPECT_TRUE(door->isKindOfClass(Door::classObject()));
    EXPECT_TRUE(door->isKindOfClass(NSObject::classObject()));
    EXPECT_FALSE(door->isKindOfClass(Window::classObject()));
    EXPECT_FALSE(make<Door>()->isKindOfClass(TrapDoor::classObject()));
}

TEST_F(NSObjectTest, AnApplicationsClassWithoutATableIsOfItsSuperclasses) {
    const auto door = make<ApplicationsDoor>();
    EXPECT_EQ(&door->isa(), &TrapDoor::classObject());
    EXPECT_TRUE(door->isKindOfClass(TrapDoor::classObject()));
    EXPECT_TRUE(door->isKindOfClass(Door::classObject()));
    EXPECT_FALSE(door->isKindOfClass(Window::classObject()));
}

TEST_F(NSObjectTest, AsGivesTheObjectOfThatClassOrNothing) {
    const std::shared_ptr<NSObject> object = make<TrapDoor>();
    EXPECT_EQ(as<TrapDoor>(object), object);
    EXPECT_EQ(as<Door>(object), object);
    EXPECT_EQ(as<NSObject>(as<TrapDoor>(object)), object);
    EXPECT_EQ(as<Window>(object), nullptr);
    EXPECT_EQ(as<TrapDoor>(std::shared_ptr<NSObject>(make<Door>())), nullptr);
    EXPECT_EQ(as<Door>(std::shared_ptr<NSObject>()), nullptr);
}

TEST_F(NSObjectTest, AsTellsAClassWithoutATableFromItsSuperclass) {
    const std::shared_ptr<NSObject> trapDoor = make<TrapDoor>();
    const std::shared_ptr<NSObject> applications = make<ApplicationsDoor>();
    EXPECT_EQ(as<ApplicationsDoor>(trapDoor), nullptr);
    EXPECT_EQ(as<ApplicationsDoor>(applications), applications);
}

} // namespace

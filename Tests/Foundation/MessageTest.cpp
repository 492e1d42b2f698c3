#include "Platform/Foundation/Foundation.h"

#include <gtest/gtest.h>
#include <optional>
#include <string>

namespace {

using namespace Foundation;

class Listener : public Protocol {
public:
    virtual void onTick(std::int64_t count) = 0;

    template <class Builder>
    static void describe(Builder& builder) {
        builder.template method<&Listener::onTick>("onTick:");
    }

protected:
    ~Listener() = default;
};

class Lamp : public Adopting<NSObject, Listener> {
public:
    static const Class& classObject() {
        static const Class& object = ClassBuilder<Lamp, NSObject>("Tests.Lamp")
                                         .initializer<double>("initWithLevel:")
                                         .property<&Lamp::level, &Lamp::setLevel>("level")
                                         .property<&Lamp::label, &Lamp::setLabel>("label")
                                         .property<&Lamp::twin, &Lamp::setTwin>("twin")
                                         .property<&Lamp::action, &Lamp::setAction>("action")
                                         .method<&Lamp::add>("add:to:")
                                         .method<&Lamp::setListener>("setListener:")
                                         .classProperty<&Lamp::maximum>("maximum")
                                         .adopts<Listener>()
                                         .build();
        return object;
    }

    using NSObject::init;
    virtual bool init(double level) {
        level_ = level;
        return level >= 0.0;
    }

    virtual float level() const { return static_cast<float>(level_); }
    void setLevel(float level) { level_ = static_cast<double>(level); }
    std::optional<std::string> label() const { return label_; }
    void setLabel(const std::optional<std::string>& label) { label_ = label; }
    std::shared_ptr<Lamp> twin() const { return twin_; }
    void setTwin(const std::shared_ptr<Lamp>& twin) { twin_ = twin; }
    std::function<void()> action() const { return action_; }
    void setAction(std::function<void()> action) { action_ = std::move(action); }
    int add(int a, std::int64_t b) { return a + static_cast<int>(b); }
    void setListener(const std::shared_ptr<Listener>& listener) { listener_ = listener.get(); }
    static double maximum() { return 100.0; }
    void onTick(std::int64_t count) override { ticks_ += count; }
    void unlisted() {}

    std::int64_t ticks_ = 0;
    Listener* listener_ = nullptr;

private:
    double level_ = 0.0;
    std::optional<std::string> label_;
    std::shared_ptr<Lamp> twin_;
    std::function<void()> action_;
};

class DimLamp : public Lamp {
public:
    float level() const override { return 1.0F; }
};

TEST(MessageTest, ASendRunsTheOperation) {
    const auto lamp = make<Lamp>(5.0);
    EXPECT_EQ(lamp->send<double>("level"), 5.0);
    lamp->send("setLevel:", 7.0);
    EXPECT_EQ(lamp->send<float>("level"), 7.0F);
    EXPECT_EQ(lamp->send<int>("add:to:", 3, 4), 7);
}

TEST(MessageTest, ASelectorAndItsTextSendTheSame) {
    const auto lamp = make<Lamp>(5.0);
    const SEL level = "level";
    const std::string text = "level";
    EXPECT_EQ(lamp->send<float>(level), 5.0F);
    EXPECT_EQ(lamp->send<float>(text), 5.0F);
    EXPECT_EQ(lamp->send<float>(std::string_view("levels").substr(0, 5)), 5.0F);
}

TEST(MessageTest, AnOverrideOfASubclassRuns) {
    const std::shared_ptr<NSObject> lamp = make<DimLamp>(5.0);
    EXPECT_EQ(lamp->send<float>("level"), 1.0F);
}

TEST(MessageTest, MethodsThatMeetInOneSlotAreAllSent) {
    // Selectors count up: those 1024 apart meet in every table of up to 1024 slots.
    static const SEL first = "ticksAtFirst:";
    static SEL second = first;
    for (int number = 0; second == first || (second.hash() - first.hash()) % 1024 != 0; ++number) {
        second = "ticksAsNumber" + std::to_string(number) + ":";
    }
    class Collision : public Lamp {
    public:
        static const Class& classObject() {
            static const Class& object = ClassBuilder<Collision, Lamp>("Tests.Collision")
                                             .method<&Collision::onTick>(first)
                                             .method<&Collision::down>(second)
                                             .build();
            return object;
        }
        void down(std::int64_t count) { ticks_ -= count; }
    };
    const auto collision = make<Collision>(5.0);
    collision->send(first, 100);
    collision->send(second, 1);
    EXPECT_EQ(collision->ticks_, 99);
    EXPECT_TRUE(collision->respondsToSelector(second));
}

TEST(MessageTest, AReceiverMayDropTheLastReferenceToItselfMeanwhile) {
    class Last : public Lamp {
    public:
        void onTick(std::int64_t /*count*/) override { owner->reset(); }
        std::shared_ptr<Last>* owner = nullptr;
    };
    std::shared_ptr<Last> last = make<Last>(5.0);
    last->owner = &last;
    last->send("onTick:", 1);
    EXPECT_EQ(last, nullptr);
}

TEST(MessageTest, ASubclassWithoutATableOfItsOwnIsReachedThroughItsSuperclasss) {
    EXPECT_EQ(make<DimLamp>(5.0)->send<float>("level"), 1.0F);
}

TEST(MessageTest, AbsentTextStaysAbsentAndEmptyTextPresent) {
    const auto lamp = make<Lamp>(5.0);
    lamp->send("setLabel:", "");
    EXPECT_EQ(lamp->send<std::optional<std::string>>("label"), std::optional<std::string>(""));
    lamp->send("setLabel:", std::optional<std::string>());
    EXPECT_EQ(lamp->send<std::optional<std::string>>("label"), std::nullopt);
}

TEST(MessageTest, AClosureTravelsAsABlockAndAnEmptyOneStaysEmpty) {
    const auto lamp = make<Lamp>(5.0);
    int calls = 0;
    lamp->send("setAction:", Block<void()>([&calls] { ++calls; }));
    lamp->send<Block<void()>>("action")();
    EXPECT_EQ(calls, 1);
    lamp->send("setAction:", Block<void()>());
    EXPECT_FALSE(lamp->action());
    EXPECT_FALSE(lamp->send<Block<void()>>("action"));
}

TEST(MessageTest, ALambdaTravelsAsABlockAndNothingEmptiesWhatItIsSentTo) {
    const auto lamp = make<Lamp>(5.0);
    int calls = 0;
    lamp->send("setAction:", [&calls] { ++calls; });
    lamp->action()();
    EXPECT_EQ(calls, 1);
    lamp->send("setAction:", nullptr);
    EXPECT_FALSE(lamp->action());
    lamp->send("setLabel:", "on");
    lamp->send("setLabel:", nullptr);
    EXPECT_EQ(lamp->label(), std::nullopt);
    lamp->send("setTwin:", make<Lamp>(1.0));
    lamp->send("setTwin:", nullptr);
    EXPECT_EQ(lamp->twin(), nullptr);
}

TEST(MessageTest, AnObjectReachesAParameterOfItsProtocol) {
    const auto lamp = make<Lamp>(5.0);
    lamp->send("setListener:", std::shared_ptr<Listener>(make<Lamp>(1.0)));
    lamp->send("setListener:", make<Lamp>(1.0));
    lamp->send("onTick:", 3);
    EXPECT_EQ(lamp->ticks_, 3);
    EXPECT_TRUE(static_cast<Listener&>(*lamp).respondsToSelector("onTick:"));
}

TEST(MessageTest, AClassIsFoundByNameAndMakesObjects) {
    Lamp::classObject();
    const Class* found = Class::named("Tests.Lamp");
    ASSERT_EQ(found, &Lamp::classObject());
    EXPECT_EQ(found->send<double>("maximum"), 100.0);
    const std::shared_ptr<NSObject> lamp = found->alloc();
    EXPECT_TRUE(lamp->send<bool>("initWithLevel:", 2.5));
    EXPECT_EQ(lamp->send<double>("level"), 2.5);
    EXPECT_EQ(make<Lamp>(-1.0), nullptr);
}

TEST(MessageDeathTest, WhatIsNotListedIsAFatalReport) {
    EXPECT_DEATH(make<Lamp>(5.0)->send("unlisted"),
                 "Fatal error: Unrecognized selector 'unlisted' sent to class 'Tests.Lamp'");
    EXPECT_DEATH(make<Lamp>(5.0)->send(SEL()),
                 "Fatal error: Unrecognized selector '' sent to class 'Tests.Lamp'");
    EXPECT_DEATH(make<Lamp>(5.0)->send(""),
                 "Fatal error: Unrecognized selector '' sent to class 'Tests.Lamp'");
    EXPECT_DEATH(Lamp::classObject().send("minimum"),
                 "Fatal error: Unrecognized selector 'minimum' sent to class 'Tests.Lamp'");
}

TEST(MessageDeathTest, AWrongArgumentIsAFatalReport) {
    EXPECT_DEATH(
        make<Lamp>(5.0)->send("setLevel:", "high"),
        "Fatal error: Wrong kind for selector 'setLevel:' of class 'Tests.Lamp': takes \\(number\\) giving "
        "nothing, was sent \\(text\\) giving nothing");
    EXPECT_DEATH(make<Lamp>(5.0)->send("setLevel:", 3), "'setLevel:' .* was sent \\(integer\\)");
    EXPECT_DEATH(make<Lamp>(5.0)->send<int>("add:to:", 3, 4.0),
                 "takes \\(integer, integer\\) .* was sent \\(integer, number\\)");
}

TEST(MessageDeathTest, AWrongResultIsAFatalReport) {
    EXPECT_DEATH(make<Lamp>(5.0)->send<std::string>("level"),
                 "Fatal error: Wrong kind for selector 'level' of class 'Tests.Lamp': takes \\(\\) giving "
                 "number, was sent \\(\\) giving text");
    EXPECT_DEATH(make<Lamp>(5.0)->send("level"), "giving number, was sent \\(\\) giving nothing");
    EXPECT_DEATH(make<Lamp>(5.0)->send<double>("setLevel:", 1.0),
                 "giving nothing, was sent \\(number\\) giving number");
    EXPECT_DEATH(Lamp::classObject().send<int>("maximum"),
                 "Wrong kind for selector 'maximum' of class 'Tests.Lamp'");
}

TEST(MessageDeathTest, AWrongNumberOfArgumentsIsAFatalReport) {
    EXPECT_DEATH(make<Lamp>(5.0)->send("setLevel:"),
                 "Fatal error: Wrong kind for selector 'setLevel:' of class 'Tests.Lamp': takes "
                 "\\(number\\) giving nothing, was sent \\(\\) giving nothing");
    EXPECT_DEATH(make<Lamp>(5.0)->send("setLevel:", 1.0, 2.0), "was sent \\(number, number\\)");
    EXPECT_DEATH(make<Lamp>(5.0)->send<float>("level", 1), "was sent \\(integer\\)");
}

TEST(MessageDeathTest, AReportNamesTheReceiversOwnClass) {
    class NightLamp : public Lamp {
    public:
        static const Class& classObject() {
            static const Class& object = ClassBuilder<NightLamp, Lamp>("Tests.NightLamp").build();
            return object;
        }
    };
    EXPECT_DEATH(make<NightLamp>(5.0)->send("unlisted"), "sent to class 'Tests.NightLamp'");
    EXPECT_DEATH(make<NightLamp>(5.0)->send("setLevel:", "high"), "of class 'Tests.NightLamp'");
}

} // namespace

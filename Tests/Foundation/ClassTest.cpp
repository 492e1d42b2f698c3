#include "Platform/Foundation/Foundation.h"

#include <algorithm>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace {

using namespace Foundation;
using testing::Contains;
using testing::UnorderedElementsAre;

class Instrument : public NSObject {
public:
    static const Class& classObject() {
        static const Class& object = ClassBuilder<Instrument, NSObject>("ClassTest.Instrument")
                                         .method<&Instrument::play>("play")
                                         .method<&Instrument::describe>("describe")
                                         .property<&Instrument::volume, &Instrument::setVolume>("volume")
                                         .property<&Instrument::strings>("strings")
                                         .classProperty<&Instrument::loudest>("loudest")
                                         .classMethod<&Instrument::twice>("twice:")
                                         .build();
        return object;
    }

    virtual std::string play() { return "something"; }
    std::string describe() { return "an instrument"; }
    double volume() const { return volume_; }
    void setVolume(double volume) { volume_ = volume; }
    virtual int strings() const { return 0; }
    void tune() {}
    static double loudest() { return 11.0; }
    static int twice(int value) { return 2 * value; }

private:
    double volume_ = 1.0;
};

class Guitar : public Instrument {
public:
    static const Class& classObject() {
        static const Class& object = ClassBuilder<Guitar, Instrument>("ClassTest.Guitar")
                                         .method<&Guitar::describe>("describe")
                                         .method<&Guitar::strum>("strum")
                                         .classProperty<&Guitar::loudest>("loudest")
                                         .build();
        return object;
    }

    std::string play() override { return "a chord"; }
    int strings() const override { return 6; }

    // Hides the superclass's: what its own table says counts for a send.
    std::string describe() { return "a guitar"; }
    int strum() { return ++strums_; }
    static double loudest() { return 7.0; }

private:
    int strums_ = 0;
};

class Playable : public NSObject {
public:
    static const Class& classObject() {
        static const Class& object =
            ClassBuilder<Playable, NSObject>("ClassTest.Playable").method<&Playable::play>("play").build();
        return object;
    }

    virtual void play() = 0;
};

class OnlyListed : public NSObject {
public:
    static const Class& classObject() {
        static const Class& object = ClassBuilder<OnlyListed, NSObject>("ClassTest.OnlyListed").build();
        return object;
    }
};

const ClassList classes{OnlyListed::classObject};

TEST(ClassTest, AClassOfAListIsFoundByNameBeforeItIsUsed) {
    const Class* found = Class::named("ClassTest.OnlyListed");
    ASSERT_NE(found, nullptr);
    EXPECT_EQ(found, &OnlyListed::classObject());
    EXPECT_TRUE(found->alloc()->send<bool>("init"));
}

TEST(ClassTest, TheModulesOwnClassesAreFoundByName) {
    for (const char* name : {"Foundation.NSObject", "Foundation.NSTimer", "Foundation.NSIndexPath",
                             "Foundation.NSCoder", "Foundation.NSBundle"}) {
        const Class* found = Class::named(name);
        ASSERT_NE(found, nullptr) << name;
        EXPECT_EQ(found->name(), name);
    }
}

TEST(ClassTest, AnUnknownNameFindsNothing) {
    Guitar::classObject();
    EXPECT_EQ(Class::named("ClassTest.Trumpet"), nullptr);
    EXPECT_EQ(Class::named("Guitar"), nullptr);
    EXPECT_EQ(Class::named(""), nullptr);
    EXPECT_EQ(Class::named("ClassTest.guitar"), nullptr);
}

TEST(ClassTest, AClassKnowsItsNameAndItsSuperclasses) {
    const Class& guitar = Guitar::classObject();
    EXPECT_EQ(guitar.name(), "ClassTest.Guitar");
    EXPECT_EQ(guitar.superclass(), &Instrument::classObject());
    EXPECT_EQ(NSObject::classObject().superclass(), nullptr);
    EXPECT_TRUE(guitar.isSubclassOf(guitar));
    EXPECT_TRUE(guitar.isSubclassOf(Instrument::classObject()));
    EXPECT_TRUE(guitar.isSubclassOf(NSObject::classObject()));
    EXPECT_FALSE(Instrument::classObject().isSubclassOf(guitar));
    EXPECT_FALSE(guitar.isSubclassOf(Playable::classObject()));
}

TEST(ClassTest, AClassListsExactlyWhatItDeclaresAndInherits) {
    EXPECT_THAT(Instrument::classObject().selectors(),
                UnorderedElementsAre(SEL("init"), SEL("play"), SEL("describe"), SEL("volume"),
                                     SEL("setVolume:"), SEL("strings")));
    EXPECT_THAT(Guitar::classObject().selectors(),
                UnorderedElementsAre(SEL("init"), SEL("play"), SEL("describe"), SEL("volume"),
                                     SEL("setVolume:"), SEL("strings"), SEL("strum")));
}

TEST(ClassTest, WhatIsNotDeclaredIsNotReachable) {
    const auto guitar = make<Guitar>();
    for (const char* name : {"tune", "setStrings:", "loudest", "twice:", "Play", "play:", "", "setvolume:"}) {
        EXPECT_FALSE(guitar->respondsToSelector(name)) << name;
        EXPECT_EQ(Guitar::classObject().method(name), nullptr) << name;
    }
    EXPECT_FALSE(guitar->respondsToSelector(SEL()));
    EXPECT_FALSE(make<Instrument>()->respondsToSelector("strum"));
    EXPECT_TRUE(guitar->respondsToSelector("strum"));
    EXPECT_TRUE(guitar->respondsToSelector("setVolume:"));
}

TEST(ClassTest, AnInheritedEntryRunsTheOverride) {
    const std::shared_ptr<NSObject> guitar = make<Guitar>();
    EXPECT_EQ(guitar->send<std::string>("play"), "a chord");
    EXPECT_EQ(guitar->send<int>("strings"), 6);
    EXPECT_EQ(make<Instrument>()->send<std::string>("play"), "something");
}

TEST(ClassTest, AnEntryOfTheSameSelectorReplacesTheInheritedOneInTheSubclassAlone) {
    EXPECT_EQ(make<Guitar>()->send<std::string>("describe"), "a guitar");
    EXPECT_EQ(make<Instrument>()->send<std::string>("describe"), "an instrument");
}

TEST(ClassTest, OperationsOfAClassAreInheritedAndReplacedToo) {
    const Class& instrument = Instrument::classObject();
    const Class& guitar = Guitar::classObject();
    EXPECT_EQ(instrument.send<double>("loudest"), 11.0);
    EXPECT_EQ(guitar.send<double>("loudest"), 7.0);
    EXPECT_EQ(guitar.send<int>("twice:", 21), 42);
    EXPECT_EQ(guitar.classMethod("play"), nullptr);
    EXPECT_NE(guitar.classMethod("twice:"), nullptr);
}

TEST(ClassTest, AClassMakesObjectsOfItself) {
    const std::shared_ptr<NSObject> object = Guitar::classObject().alloc();
    EXPECT_EQ(&object->isa(), &Guitar::classObject());
    EXPECT_EQ(object->send<int>("strum"), 1);
}

TEST(ClassTest, ATableHoldsManyEntries) {
    MethodTable table;
    std::vector<SEL> selectors;
    for (int number = 0; number < 1000; ++number) {
        selectors.emplace_back("entry" + std::to_string(number));
        table.set({selectors.back(), nullptr, nullptr});
        table.set({selectors.back(), nullptr, nullptr});
    }
    EXPECT_EQ(table.selectors().size(), selectors.size());
    for (const SEL selector : selectors) {
        const Method* method = table.find(selector);
        ASSERT_NE(method, nullptr) << selector.name();
        EXPECT_EQ(method->selector, selector);
    }
    EXPECT_EQ(table.find("entry1000"), nullptr);
    EXPECT_EQ(table.find(SEL()), nullptr);
}

TEST(ClassTest, AFewEntriesThatWouldMeetAreFoundAtTheFirstLook) {
    // Selectors count up: those 8 apart meet in a table of 8 slots.
    std::vector<SEL> eightApart;
    for (int number = 0; number < 8 * 3; ++number) {
        const SEL selector = "few" + std::to_string(number);
        if (number % 8 == 0) {
            eightApart.push_back(selector);
        }
    }
    MethodTable table;
    for (const SEL selector : eightApart) {
        table.set({selector, nullptr, nullptr});
    }
    for (const SEL selector : eightApart) {
        EXPECT_EQ(table.candidate(selector).selector, selector) << selector.name();
    }
}

TEST(ClassTest, EntriesThatMeetInOneSlotAreAllReached) {
    // Selectors count up: those 64 apart meet in every table of up to 64 slots.
    std::vector<SEL> apart;
    for (int number = 0; number < 64 * 20; ++number) {
        const SEL selector = "apart" + std::to_string(number);
        if (number % 64 == 0) {
            apart.push_back(selector);
        }
    }
    MethodTable table;
    for (const SEL selector : apart) {
        table.set({selector, nullptr, nullptr});
    }
    for (const SEL selector : apart) {
        ASSERT_NE(table.find(selector), nullptr);
        EXPECT_EQ(table.find(selector)->selector, selector);
    }
}

TEST(ClassDeathTest, AnAbstractClassMakesNoObjects) {
    EXPECT_DEATH(Playable::classObject().alloc(),
                 "Fatal error: Class 'ClassTest.Playable' has no objects of its own");
}

TEST(ClassDeathTest, ANameThatIsTakenIsAFatalReport) {
    Guitar::classObject();
    EXPECT_DEATH((ClassBuilder<Guitar, Instrument>("ClassTest.Guitar")),
                 "Fatal error: Class 'ClassTest.Guitar' is declared twice");
}

TEST(ClassDeathTest, ASelectorWithoutAColonForEachParameterIsAFatalReport) {
    const std::string report = "Fatal error: Selector 'setVolume' of class 'ClassTest.Wrong' stands for an "
                               "operation with another number of arguments";
    EXPECT_DEATH(
        (ClassBuilder<Instrument, NSObject>("ClassTest.Wrong").method<&Instrument::setVolume>("setVolume")),
        report);
}

TEST(ClassDeathTest, AClassDoesNotAnswerForItsObjects) {
    EXPECT_DEATH(Guitar::classObject().send("play"),
                 "Fatal error: Unrecognized selector 'play' sent to class 'ClassTest.Guitar'");
}

} // namespace

#include "Platform/Foundation/Foundation.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <optional>
#include <string>
#include <vector>

namespace {

using namespace Foundation;

enum class Side { Left, Right };
enum class Events : std::uint8_t { None = 0, TouchDown = 1, All = 255 };

struct Point {
    double x = 0.0;
    double y = 0.0;
    bool operator==(const Point&) const = default;
};

using Points = std::vector<Point>;

class Pet;

class Listener : public Protocol {
public:
    virtual void onCall() = 0;

    template <class Builder>
    static void describe(Builder& builder) {
        builder.template method<&Listener::onCall>("onCall");
    }

protected:
    ~Listener() = default;
};

class Pet : public NSObject {
public:
    static const Class& classObject() {
        static const Class& object = ClassBuilder<Pet, NSObject>("EncodingTest.Pet").build();
        return object;
    }
};

class Dog : public Adopting<Pet, Listener> {
public:
    static const Class& classObject() {
        static const Class& object = ClassBuilder<Dog, Pet>("EncodingTest.Dog").adopts<Listener>().build();
        return object;
    }

    void onCall() override { ++calls; }

    int calls = 0;
};

// Shares the table of Dog.
class Poodle : public Dog {};

/// Gives back what it is sent, once for each type.
class Echo : public NSObject {
public:
    static const Class& classObject() {
        static const Class& object = ClassBuilder<Echo, NSObject>("EncodingTest.Echo")
                                         .method<&Echo::value<bool>>("bool:")
                                         .method<&Echo::value<std::int8_t>>("int8:")
                                         .method<&Echo::value<std::uint8_t>>("uint8:")
                                         .method<&Echo::value<int>>("int:")
                                         .method<&Echo::value<unsigned>>("unsigned:")
                                         .method<&Echo::value<std::int64_t>>("int64:")
                                         .method<&Echo::value<std::uint64_t>>("uint64:")
                                         .method<&Echo::value<Side>>("side:")
                                         .method<&Echo::value<Events>>("events:")
                                         .method<&Echo::value<float>>("float:")
                                         .method<&Echo::value<double>>("double:")
                                         .method<&Echo::value<std::string>>("string:")
                                         .method<&Echo::value<std::optional<std::string>>>("text:")
                                         .method<&Echo::length>("length:")
                                         .method<&Echo::value<std::shared_ptr<NSObject>>>("object:")
                                         .method<&Echo::value<std::shared_ptr<Pet>>>("pet:")
                                         .method<&Echo::value<std::shared_ptr<Dog>>>("dog:")
                                         .method<&Echo::value<std::shared_ptr<Poodle>>>("poodle:")
                                         .method<&Echo::value<std::shared_ptr<Listener>>>("listener:")
                                         .method<&Echo::value<std::function<int(int)>>>("block:")
                                         .method<&Echo::value<Point>>("point:")
                                         .method<&Echo::value<std::optional<Point>>>("maybePoint:")
                                         .method<&Echo::value<std::vector<std::shared_ptr<Pet>>>>("pets:")
                                         .method<&Echo::value<std::optional<Points>>>("maybePoints:")
                                         .method<&Echo::secondOf>("secondOf:and:and:")
                                         .method<&Echo::last>("last")
                                         .build();
        return object;
    }

    template <class T>
    T value(const T& value) {
        return value;
    }

    int secondOf(const std::optional<std::string>& /*first*/, int second,
                 const std::shared_ptr<Pet>& /*third*/) {
        return second;
    }

    std::size_t length(std::string_view text) { return text.size(); }
    const std::vector<int>& last() const { return last_; }

private:
    std::vector<int> last_{1, 2, 3};
};

class EncodingTest : public testing::Test {
protected:
    const std::shared_ptr<Echo> echo = make<Echo>();
};

using EncodingDeathTest = EncodingTest;

TEST_F(EncodingTest, Booleans) {
    EXPECT_TRUE(echo->send<bool>("bool:", true));
    EXPECT_FALSE(echo->send<bool>("bool:", false));
}

TEST_F(EncodingTest, IntegersOfAllWidthsReachEachOther) {
    EXPECT_EQ(echo->send<std::int64_t>("int:", std::int8_t{-5}), -5);
    EXPECT_EQ(echo->send<std::int8_t>("int64:", -128L), -128);
    EXPECT_EQ(echo->send<unsigned>("uint8:", 255), 255U);
    EXPECT_EQ(echo->send<int>("unsigned:", std::size_t{7}), 7);
    EXPECT_EQ(echo->send<std::int64_t>("int64:", std::numeric_limits<std::int64_t>::min()),
              std::numeric_limits<std::int64_t>::min());
    EXPECT_EQ(echo->send<std::uint64_t>("uint64:", std::numeric_limits<std::int64_t>::max()),
              std::uint64_t{std::numeric_limits<std::int64_t>::max()});
    EXPECT_EQ(echo->send<unsigned>("unsigned:", std::numeric_limits<unsigned>::max()),
              std::numeric_limits<unsigned>::max());
}

TEST_F(EncodingDeathTest, AnIntegerThatDoesNotFitIsAFatalReport) {
    EXPECT_DEATH(echo->send<int>("int8:", 128), "selector 'int8:' of class 'EncodingTest.Echo'");
    EXPECT_DEATH(echo->send<int>("int8:", -129), "selector 'int8:'");
    EXPECT_DEATH(echo->send<int>("uint8:", -1), "selector 'uint8:'");
    EXPECT_DEATH(echo->send<int>("unsigned:", -1), "selector 'unsigned:'");
    EXPECT_DEATH(echo->send<int>("uint64:", -1), "selector 'uint64:'");
    EXPECT_DEATH(echo->send<std::int8_t>("int:", 1000), "selector 'int:' .* was sent 1000");
    EXPECT_DEATH(echo->send<int>("int64:", std::numeric_limits<std::uint64_t>::max()),
                 "An integer of more than 63 bits can't be sent");
}

TEST_F(EncodingTest, AnEnumerationIsAnInteger) {
    EXPECT_EQ(echo->send<Side>("side:", Side::Right), Side::Right);
    EXPECT_EQ(echo->send<int>("side:", Side::Right), 1);
    EXPECT_EQ(echo->send<Events>("events:", 255), Events::All);
}

TEST_F(EncodingDeathTest, AnIntegerOutsideAnEnumerationsTypeIsAFatalReport) {
    EXPECT_DEATH(echo->send<int>("events:", 256), "selector 'events:' of class 'EncodingTest.Echo'");
    EXPECT_DEATH(echo->send<Events>("int:", -1), "selector 'int:'");
}

TEST_F(EncodingTest, NumbersOfBothWidthsReachEachOther) {
    EXPECT_EQ(echo->send<double>("float:", 0.25), 0.25);
    EXPECT_EQ(echo->send<float>("double:", 0.1F), 0.1F);
    EXPECT_TRUE(std::isnan(echo->send<float>("double:", std::numeric_limits<double>::quiet_NaN())));
    EXPECT_EQ(echo->send<float>("double:", std::numeric_limits<double>::infinity()),
              std::numeric_limits<float>::infinity());
}

TEST_F(EncodingTest, TextOfAllSpellings) {
    EXPECT_EQ(echo->send<std::string>("string:", "literal"), "literal");
    EXPECT_EQ(echo->send<std::string>("text:", std::string("string")), "string");
    EXPECT_EQ(echo->send<std::string>("string:", std::optional<std::string>("present")), "present");
    EXPECT_EQ(echo->send<std::optional<std::string>>("string:", std::string_view("view")), "view");
    EXPECT_EQ(echo->send<int>("length:", "12345"), 5);
    EXPECT_EQ(echo->send<std::string>("string:", std::string("a\0b", 3)), std::string("a\0b", 3));
}

TEST_F(EncodingTest, AbsentTextIsNotEmptyText) {
    EXPECT_EQ(echo->send<std::optional<std::string>>("text:", std::optional<std::string>()), std::nullopt);
    EXPECT_EQ(echo->send<std::optional<std::string>>("text:", ""), std::optional<std::string>(""));
}

TEST_F(EncodingDeathTest, AbsentTextWhereTextIsNeededIsAFatalReport) {
    EXPECT_DEATH(echo->send<std::string>("string:", std::optional<std::string>()),
                 "selector 'string:' of class 'EncodingTest.Echo': expected text, was sent no text");
    EXPECT_DEATH(echo->send<std::string>("text:", std::optional<std::string>()), "selector 'text:'");
}

TEST_F(EncodingTest, AnObjectReachesAParameterOfItsSuperclassAndComesBackAsItself) {
    const auto dog = make<Dog>();
    EXPECT_EQ(echo->send<std::shared_ptr<Pet>>("pet:", dog), dog);
    EXPECT_EQ(echo->send<std::shared_ptr<Dog>>("pet:", dog), dog);
    EXPECT_EQ(echo->send<std::shared_ptr<Dog>>("object:", dog), dog);
    EXPECT_EQ(echo->send<std::shared_ptr<NSObject>>("dog:", std::shared_ptr<Pet>(dog)), dog);
    EXPECT_EQ(echo->send<std::shared_ptr<Dog>>("dog:", make<Poodle>())->calls, 0);
}

TEST_F(EncodingTest, NoObjectIsOfEveryClass) {
    EXPECT_EQ(echo->send<std::shared_ptr<Dog>>("dog:", nullptr), nullptr);
    EXPECT_EQ(echo->send<std::shared_ptr<Dog>>("pet:", std::shared_ptr<Pet>()), nullptr);
    EXPECT_EQ(echo->send<std::shared_ptr<Listener>>("listener:", nullptr), nullptr);
    EXPECT_EQ(echo->send<std::shared_ptr<Listener>>("listener:", std::shared_ptr<Listener>()), nullptr);
}

TEST_F(EncodingDeathTest, AnObjectOfAnotherClassIsAFatalReport) {
    EXPECT_DEATH(echo->send<std::shared_ptr<Pet>>("dog:", make<Pet>()),
                 "Fatal error: Wrong kind for selector 'dog:' of class 'EncodingTest.Echo': expected "
                 "EncodingTest.Dog, was sent EncodingTest.Pet");
    EXPECT_DEATH(echo->send<std::shared_ptr<Dog>>("pet:", make<Pet>()),
                 "selector 'pet:' of class 'EncodingTest.Echo'");
    EXPECT_DEATH(echo->send<std::shared_ptr<Dog>>("object:", echo), "was sent EncodingTest.Echo");
}

TEST_F(EncodingDeathTest, AnObjectOfASuperclassWithTheSameTableIsAFatalReport) {
    EXPECT_EQ(echo->send<std::shared_ptr<Poodle>>("poodle:", nullptr), nullptr);
    EXPECT_DEATH(echo->send<std::shared_ptr<Dog>>("poodle:", make<Dog>()), "selector 'poodle:'");
}

TEST_F(EncodingTest, AnAdopterReachesAParameterOfItsProtocol) {
    const auto dog = make<Dog>();
    echo->send<std::shared_ptr<Listener>>("listener:", dog)->onCall();
    echo->send<std::shared_ptr<Listener>>("object:", std::shared_ptr<Listener>(dog))->send("onCall");
    EXPECT_EQ(dog->calls, 2);
    EXPECT_EQ(echo->send<std::shared_ptr<Pet>>("listener:", std::shared_ptr<Listener>(dog)), dog);
    EXPECT_EQ(as<Dog>(std::shared_ptr<Listener>(dog)), dog);
    EXPECT_EQ(as<Listener>(std::shared_ptr<NSObject>(dog)), std::shared_ptr<Listener>(dog));
}

TEST_F(EncodingDeathTest, AnObjectThatDoesNotAdoptTheProtocolIsAFatalReport) {
    EXPECT_DEATH(echo->send<std::shared_ptr<Listener>>("listener:", make<Pet>()),
                 "Fatal error: Wrong kind for selector 'listener:' of class 'EncodingTest.Echo': expected an "
                 "adopter of the protocol, was sent EncodingTest.Pet");
}

TEST_F(EncodingTest, AClosureAndABlockAreOneKind) {
    const std::function<int(int)> twice = [](int value) { return 2 * value; };
    EXPECT_EQ(echo->send<std::function<int(int)>>("block:", twice)(4), 8);
    EXPECT_EQ(echo->send<Block<int(int)>>("block:", Block<int(int)>(twice))(5), 10);
    EXPECT_FALSE(echo->send<Block<int(int)>>("block:", std::function<int(int)>()));
    EXPECT_FALSE(echo->send<std::function<int(int)>>("block:", Block<int(int)>()));
}

int half(int value) { return value / 2; }

TEST_F(EncodingTest, ALambdaAndAFunctionReachABlock) {
    int calls = 0;
    EXPECT_EQ(echo->send<Block<int(int)>>("block:", [&calls](int value) { return value + ++calls; })(4), 5);
    const auto twice = [](int value) { return 2 * value; };
    EXPECT_EQ(echo->send<Block<int(int)>>("block:", twice)(4), 8);
    EXPECT_EQ(
        echo->send<Block<int(int)>>("block:", [count = 0](int value) mutable { return value + ++count; })(4),
        5);
    EXPECT_EQ(echo->send<Block<int(int)>>("block:", half)(4), 2);
    EXPECT_EQ(echo->send<Block<int(int)>>("block:", &half)(4), 2);
}

TEST_F(EncodingTest, NothingReachesWhateverMayBeAbsent) {
    EXPECT_EQ(echo->send<std::shared_ptr<NSObject>>("object:", nullptr), nullptr);
    EXPECT_EQ(echo->send<std::shared_ptr<Dog>>("dog:", std::nullopt), nullptr);
    EXPECT_EQ(echo->send<std::shared_ptr<Listener>>("listener:", nullptr), nullptr);
    EXPECT_EQ(echo->send<std::optional<std::string>>("text:", nullptr), std::nullopt);
    EXPECT_EQ(echo->send<std::optional<std::string>>("text:", std::nullopt), std::nullopt);
    EXPECT_FALSE(echo->send<Block<int(int)>>("block:", nullptr));
    EXPECT_EQ(echo->send<std::optional<Point>>("maybePoint:", nullptr), std::nullopt);
    EXPECT_EQ(echo->send<std::optional<Points>>("maybePoints:", nullptr), std::nullopt);
    EXPECT_EQ(echo->send<int>("secondOf:and:and:", nullptr, 2, nullptr), 2);
    EXPECT_EQ(echo->send<int>("secondOf:and:and:", "text", 3, nullptr), 3);
}

TEST_F(EncodingDeathTest, NothingForWhatMustBeThereIsAFatalReport) {
    EXPECT_DEATH(
        echo->send<int>("int:", nullptr),
        "Wrong kind for selector 'int:' of class 'EncodingTest.Echo': takes .integer. giving integer, "
        "was sent .nothing. giving integer");
    EXPECT_DEATH(echo->send<bool>("bool:", nullptr), "selector 'bool:'");
    EXPECT_DEATH(echo->send<std::string>("string:", nullptr), "expected text, was sent no text");
    EXPECT_DEATH(echo->send<Point>("point:", std::nullopt), "selector 'point:'");
    EXPECT_DEATH(echo->send<std::vector<std::shared_ptr<Pet>>>("pets:", nullptr),
                 "expected list, was sent no list");
    EXPECT_DEATH(echo->send<int>("secondOf:and:and:", nullptr, nullptr, nullptr),
                 "takes .text, integer, object. giving integer, was sent .nothing, nothing, nothing.");
    EXPECT_DEATH(echo->send<int>("secondOf:and:and:", nullptr, 2), "was sent .nothing, integer.");
    EXPECT_DEATH(echo->send("text:", nullptr), "giving text, was sent .nothing. giving nothing");
}

TEST_F(EncodingTest, AListReachesAnOptionalListAndTheOtherWayRound) {
    const Points points{{1.0, 2.0}, {3.0, 4.0}};
    EXPECT_EQ(echo->send<std::optional<Points>>("maybePoints:", points), points);
    EXPECT_EQ(echo->send<Points>("maybePoints:", std::optional(points)), points);
    const std::vector<std::shared_ptr<Pet>> pets{make<Pet>()};
    EXPECT_EQ(echo->send<std::vector<std::shared_ptr<Pet>>>("pets:", std::optional(pets)), pets);
    EXPECT_DEATH(echo->send<Points>("maybePoints:", std::optional<Points>()),
                 "expected list, was sent no list");
}

TEST_F(EncodingDeathTest, ABlockOfOtherTypesIsAFatalReport) {
    EXPECT_DEATH(echo->send<Block<int(int)>>("block:", Block<void()>([] {})),
                 "Wrong kind for selector 'block:' of class 'EncodingTest.Echo'");
}

TEST_F(EncodingTest, StructuresTravelAsTheyAre) {
    EXPECT_EQ(echo->send<Point>("point:", Point{1.0, 2.0}), (Point{1.0, 2.0}));
    EXPECT_EQ(echo->send<std::optional<Point>>("maybePoint:", std::optional<Point>({3.0, 4.0})),
              (Point{3.0, 4.0}));
    EXPECT_EQ(echo->send<std::optional<Point>>("maybePoint:", std::optional<Point>()), std::nullopt);
    EXPECT_EQ(echo->send<std::vector<int>>("last"), (std::vector<int>{1, 2, 3}));
}

TEST_F(EncodingTest, ListsOfObjectsTravelAsTheyAre) {
    const std::vector<std::shared_ptr<Pet>> pets{make<Pet>(), make<Dog>(), nullptr};
    EXPECT_EQ(echo->send<std::vector<std::shared_ptr<Pet>>>("pets:", pets), pets);
}

TEST_F(EncodingDeathTest, OneStructureForAnotherIsAFatalReport) {
    struct Size {
        double width = 0.0;
        double height = 0.0;
    };
    EXPECT_DEATH(echo->send<Point>("point:", Size{}),
                 "Wrong kind for selector 'point:' of class 'EncodingTest.Echo'");
    EXPECT_DEATH(echo->send<std::optional<Point>>("maybePoint:", Point{}), "selector 'maybePoint:'");
    EXPECT_DEATH(echo->send<std::vector<std::shared_ptr<Dog>>>("pets:", std::vector<std::shared_ptr<Pet>>()),
                 "selector 'pets:'");
}

} // namespace

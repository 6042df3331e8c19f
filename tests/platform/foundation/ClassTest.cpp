#include "platform/foundation/Class.h"
#include "platform/foundation/NSObject.h"

#include <gtest/gtest.h>
#include <stdexcept>

namespace prismo {
namespace {

class Animal : public NSObject {
  public:
    static const Class& classObject() {
        static const Class objectClass("Animal", &NSObject::classObject(),
                                       [] { return std::make_shared<Animal>(); },
                                       {method<&Animal::name>("name"), method<&Animal::setName>("setName:"),
                                        method<&Animal::setFriend>("setFriend:hungry:"),
                                        method<&Animal::meet>("meet:"), method<&Animal::sound>("sound")});
        return objectClass;
    }
    const Class& isa() const override { return classObject(); }

    std::string name() const { return name_; }
    void setName(const Value& name) { name_ = name.text(); }
    void setFriend(const std::shared_ptr<Animal>& other, bool hungry) {
        friend_ = other;
        hungry_ = hungry;
    }
    std::shared_ptr<Animal> meet(std::shared_ptr<Animal> other) { return other; }
    std::string sound() const { return "?"; }

    std::string name_ = "nobody";
    std::weak_ptr<Animal> friend_;
    bool hungry_ = false;
};

class Dog : public Animal {
  public:
    static const Class& classObject() {
        static const Class objectClass("Dog", &Animal::classObject(), [] { return std::make_shared<Dog>(); },
                                       {method<&Dog::bark>("sound")});
        return objectClass;
    }
    const Class& isa() const override { return classObject(); }
    std::string bark() const { return "woof"; }
};

TEST(Class, MethodIsFoundByItsSelector) {
    EXPECT_EQ(std::make_shared<Animal>()->performSelector("name").text(), "nobody");
}

TEST(Class, ValueArgumentArrives) {
    const auto animal = std::make_shared<Animal>();
    animal->performSelector("setName:", {"Rex"});
    EXPECT_EQ(animal->name(), "Rex");
}

TEST(Class, ObjectAndBooleanArgumentsArrive) {
    const auto animal = std::make_shared<Animal>();
    const auto other = std::make_shared<Dog>();
    animal->performSelector("setFriend:hungry:", {other, 1});
    EXPECT_EQ(animal->friend_.lock(), other);
    EXPECT_TRUE(animal->hungry_);
}

TEST(Class, ArgumentOfAnotherClassArrivesAsNoObject) {
    const auto animal = std::make_shared<Animal>();
    EXPECT_TRUE(animal->performSelector("meet:", {std::make_shared<NSObject>()}).isNothing());
}

TEST(Class, ObjectResultComesBack) {
    const auto dog = std::make_shared<Dog>();
    EXPECT_EQ(std::make_shared<Animal>()->performSelector("meet:", {dog}).object<Dog>(), dog);
}

TEST(Class, ArgumentNotGivenIsNothing) {
    const auto animal = std::make_shared<Animal>();
    animal->performSelector("setName:");
    EXPECT_EQ(animal->name(), "");
}

TEST(Class, ArgumentNotTakenIsIgnored) {
    EXPECT_EQ(std::make_shared<Animal>()->performSelector("name", {"x", 2}).text(), "nobody");
}

TEST(Class, MethodWithoutResultGivesNothing) {
    EXPECT_TRUE(std::make_shared<Animal>()->performSelector("setName:", {"x"}).isNothing());
}

TEST(Class, InheritedMethodIsFound) {
    EXPECT_EQ(std::make_shared<Dog>()->performSelector("name").text(), "nobody");
}

TEST(Class, MethodOfTheSubclassGoesFirst) {
    EXPECT_EQ(std::make_shared<Dog>()->performSelector("sound").text(), "woof");
    EXPECT_EQ(std::make_shared<Animal>()->performSelector("sound").text(), "?");
}

TEST(Class, SelectorIsComparedWhole) {
    const Dog dog;
    EXPECT_TRUE(dog.respondsToSelector("setName:"));
    EXPECT_FALSE(dog.respondsToSelector("setName"));
}

TEST(Class, UnknownSelectorThrows) {
    EXPECT_THROW(std::make_shared<Dog>()->performSelector("fly"), std::logic_error);
}

TEST(Class, ObjectLivesUntilItsMethodReturns) {
    static std::shared_ptr<NSObject> last;
    class Leaver : public NSObject {
      public:
        static const Class& classObject() {
            static const Class objectClass("Leaver", &NSObject::classObject(), {},
                                           {method<&Leaver::leave>("leave")});
            return objectClass;
        }
        const Class& isa() const override { return classObject(); }
        bool leave() {
            last.reset();
            return weak_from_this().lock() != nullptr;
        }
    };
    last = std::make_shared<Leaver>();
    NSObject& object = *last;
    EXPECT_TRUE(object.performSelector("leave").boolValue());
}

TEST(Class, SubclassKnowsItsSuperclasses) {
    EXPECT_TRUE(Dog::classObject().isSubclassOf(NSObject::classObject()));
    EXPECT_TRUE(Dog::classObject().isSubclassOf(Dog::classObject()));
    EXPECT_FALSE(Animal::classObject().isSubclassOf(Dog::classObject()));
}

TEST(Class, RegisteredClassIsFoundByName) {
    registerClass(Dog::classObject());
    EXPECT_EQ(NSClassFromString("Dog"), &Dog::classObject());
    EXPECT_EQ(NSClassFromString("Cat"), nullptr);
}

TEST(Class, LaterRegistrationTakesTheName) {
    static const Class first("Twice", nullptr, {});
    static const Class second("Twice", nullptr, {});
    registerClass(first);
    registerClass(second);
    EXPECT_EQ(NSClassFromString("Twice"), &second);
}

TEST(Class, CreateMakesAnObjectOfTheClass) {
    EXPECT_EQ(&Dog::classObject().create()->isa(), &Dog::classObject());
}

TEST(Class, ClassThatNobodyMakesByNameCreatesNothing) {
    const Class abstract("Abstract", nullptr, {});
    EXPECT_EQ(abstract.create(), nullptr);
}

TEST(Class, AssociatedObjectIsRetainedUntilReplaced) {
    NSObject owner;
    auto object = std::make_shared<NSObject>();
    const std::weak_ptr<NSObject> watched = object;
    owner.setAssociatedObject("delegate", std::move(object));
    EXPECT_FALSE(watched.expired());
    owner.setAssociatedObject("delegate", {});
    EXPECT_TRUE(watched.expired());
}

TEST(Class, AssociatedObjectThatWasNeverSetIsNothing) {
    EXPECT_TRUE(NSObject().associatedObject("delegate").isNothing());
}

} // namespace
} // namespace prismo

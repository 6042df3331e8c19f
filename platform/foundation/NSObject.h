#pragma once

#include "platform/foundation/Class.h"
#include "platform/foundation/Value.h"

#include <map>
#include <memory>
#include <string>
#include <string_view>

namespace prismo {

/// The root of every framework class. Objects live in `std::shared_ptr`; those that need `self` in their
/// construction are made first and initialised by a method that their class names (`initWith…`).
class NSObject : public std::enable_shared_from_this<NSObject> {
  public:
    NSObject() = default;
    NSObject(const NSObject&) = delete;
    NSObject& operator=(const NSObject&) = delete;
    virtual ~NSObject() = default;

    static const Class& classObject();
    /// The class of this object: its name, its methods by selector.
    virtual const Class& isa() const { return classObject(); }

    bool respondsToSelector(std::string_view selector) const {
        return instancesRespondToSelector(isa(), selector);
    }
    /// Sends a message by name. Surplus arguments are ignored; missing arguments become nothing. Throws
    /// std::logic_error if the class has no such method. `sender` is for the trace: what sends the message.
    Value performSelector(std::string_view selector, std::initializer_list<Value> arguments = {},
                          std::string_view sender = {});
    /// What a person who follows the program sees in place of the object.
    virtual std::string description() const { return isa().name(); }

    /// A value kept with this object under the identity of `selector`, until it is replaced by nothing or
    /// the object goes. Objects are retained.
    void setAssociatedObject(std::string_view selector, Value value);
    const Value& associatedObject(std::string_view selector) const;

  protected:
    template <typename Self>
    std::shared_ptr<Self> sharedSelf() {
        return std::static_pointer_cast<Self>(shared_from_this());
    }

  private:
    Dictionary associatedObjects_;
};

/// A message to be sent later: to whom and under which name. The receiver is not kept alive.
struct Message {
    std::weak_ptr<NSObject> target;
    std::string selector;
};

} // namespace prismo

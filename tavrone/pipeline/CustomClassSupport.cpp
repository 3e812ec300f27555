#include "tavrone/pipeline/CustomClassSupport.h"

#include "tavrone/core/Class.h"
#include "tavrone/core/Raise.h"
#include "tavrone/core/Wrappers.h"

namespace tavrone {

namespace {

// What the maps hold: an instance as the interface that is called, so that no call has to cast.
template <class T>
struct Held : ObjectRef {
  explicit Held(SmartPtr<T> const &made) : instance(made) {}
  ~Held() noexcept(false) override = default;

  SmartPtr<T> instance;
};

// The instance that the owner keeps under the name.
template <class T, class Refuse>
T &instanceOf(SmallStringMap &instances, tvstring const &className, Refuse const &refuse) {
  if (ObjectRef *const kept = instances.get(className)) return *static_cast<Held<T> *>(kept)->instance;
  SmartPtr<Held<T>> const made(new Held<T>(CustomClassSupport::create<T>(className, refuse)));
  // Text of its own: the name may be a view on bytes that go.
  instances.put(tvstring(className.data(), className.length()), made.get());
  return *made->instance;
}

}  // namespace

bool CustomClassSupport::validate(tvstring const &className, tvstring const &fieldName, Object const *value,
                                  DataObject *object) {
  auto &validator =
      instanceOf<IFieldValidation>(validators_, className, [](Object *other) { checkedCast<IFieldValidation>(other); });
  return validator.validate(fieldName, value, object);
}

Object *CustomClassSupport::invoke(tvstring const &className, ObjectList const &arguments, TransformContext &context) {
  auto &invokable = instanceOf<IInvokable>(invokables_, className, [&](Object *) {
    ObjectList texts;
    texts.add(new StringObject(className));
    texts.add(new StringObject("IInvokable"));
    raiseCatalogued<TransformException>("SRT185", texts, "cpp/CustomClassSupport");
  });
  return invokable.invoke(arguments, context);
}

IInvokable::~IInvokable() noexcept(false) = default;
IFieldValidation::~IFieldValidation() noexcept(false) = default;
IProcessing::~IProcessing() noexcept(false) = default;
IInputMapping::~IInputMapping() noexcept(false) = default;
INormalizedObjectMapping::~INormalizedObjectMapping() noexcept(false) = default;
IExternalMapping::~IExternalMapping() noexcept(false) = default;
IOutputMapping::~IOutputMapping() noexcept(false) = default;

}  // namespace tavrone

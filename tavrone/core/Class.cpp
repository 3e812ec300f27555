#include "tavrone/core/Class.h"

#include "tavrone/core/Raise.h"

namespace tavrone {

tvstring Class::getName() const {
  if (type_ == nullptr || type_->name() == nullptr) return tvstring();
  return tvstringliteral(type_->name());
}

bool Class::operator==(Class const &other) const {
  return type_ == other.type_ || (type_ != nullptr && other.type_ != nullptr && *type_ == *other.type_);
}

void throwClassCastException(std::type_info const *source, std::type_info const &target) {
  tvstring const targetName = Class(target).getName();
  if (source == nullptr) raise<ClassCastException>("Cannot cast NULL to " + targetName, "cpp/Class");
  raise<ClassCastException>("Cannot cast " + Class(source).getName() + "* to " + targetName, "cpp/Class");
}

}  // namespace tavrone

#include <grafel/structure/SceneStyles.h>

#include <grafel/structure/LibraryTables.h>

namespace Grafel {

using Arbor::Token;

template <TokenId Tag> Property* SceneStyle<Tag>::propertyInfo(Token name) const {
    if constexpr (Tag == id_Scene2dStyle)
        return findInTables<sceneStylePropertyList>(name);
    else
        return findInTables<scene3dStylePropertyList, sceneStylePropertyList>(name);
}

template <TokenId Tag> Token SceneStyle<Tag>::getCmdType() {
    return Tag == id_Scene2dStyle ? tok_Scene2d : tok_Scene3d;
}

template class SceneStyle<id_Scene2dStyle>;
template class SceneStyle<id_Scene3dStyle>;

} // namespace Grafel

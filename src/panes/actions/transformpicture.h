#pragma once

class QIcon;
class QString;
class Transform;

/// The picture on the button of a transform: a tile in the colour of its category with two letters of its name.
QIcon transformPicture(const Transform &transform);

#include "engine/perspective.h"

#include <cmath>

namespace lumeth {

glm::mat4 matPerspective(float fieldOfView, float aspect, float near, float far)
{
    const auto tangent = static_cast<float>(std::tan(fieldOfView * 0.5));
    const float s = 1.0F / tangent;
    glm::mat4 matrix(0.0F);
    matrix[0][0] = s;
    matrix[1][1] = s * aspect;
    matrix[2][2] = -(far + near) / (far - near);
    matrix[2][3] = -1.0F;
    matrix[3][2] = (far * -2.0F * near) / (far - near);
    return matrix;
}

} // namespace lumeth

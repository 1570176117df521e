#version 330

layout(location = 0) in vec3 in_position;

uniform mat4 projection;

out vec3 texcoord;

void main()
{
    gl_Position = projection * vec4(in_position, 1);
    texcoord = in_position;
}

#version 330

layout(location = 0) in vec3 in_position;

out vec2 texcoord;

void main()
{
    gl_Position = vec4(in_position, 1.0f);
    texcoord = vec2(in_position + 1.0) * 0.5;
}

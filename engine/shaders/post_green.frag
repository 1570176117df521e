#version 450

uniform vec2 resolution;
uniform sampler2D fbo;

out vec4 outputColor;

void main()
{
    outputColor = vec4(0, 1, 0, 1);
}

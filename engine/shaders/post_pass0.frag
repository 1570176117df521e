#version 450

uniform vec2 resolution;
uniform sampler2D fbo;

in vec2 texcoord;
out vec4 outputColor;

void main()
{
    outputColor = texture(fbo, texcoord);
}

#version 450

uniform vec2 resolution;
uniform sampler2D fbo;

in vec2 texcoord;
out vec4 outputColor;

const float gamma = 2.2;

vec3 gammaEncode(vec3 color)
{
    return pow(color, vec3(1.0 / gamma));
}

void main()
{
    outputColor = vec4(gammaEncode(texture(fbo, texcoord).rgb), 1.0);
}

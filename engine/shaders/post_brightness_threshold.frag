#version 450

uniform vec2 resolution;
uniform sampler2D fbo;

in vec2 texcoord;
out vec4 outputColor;

vec3 color_threshold(vec3 color)
{
    float mean = (color.r + color.g + color.b) / 3.0;
    return mean > 0.01 ? vec3(1) : vec3(0, 0, 1);
}

void main()
{
    outputColor = vec4(color_threshold(texture(fbo, texcoord).rgb), 1.0);
}

#version 450

uniform vec2 resolution;
uniform sampler2D fbo;

in vec2 texcoord;
out vec4 outputColor;

void main()
{
    vec3 color_out = texture(fbo, texcoord).rgb;
    color_out = 0.1 * color_out + 0.7;
    outputColor = vec4(color_out, 1.0);
}

#version 450

uniform samplerCube cubemap;
uniform bool textured;
uniform vec3 background_color;

in vec3 texcoord;
out vec4 outputColor;

vec3 gD(vec3 color)
{
    return pow(color, vec3(2.2));
}

void main()
{
    vec3 color = background_color;
    if (textured) {
        color = texture(cubemap, texcoord).rgb;
    }
    outputColor = vec4(gD(color), 1);
}

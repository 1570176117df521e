#version 450

uniform vec2 resolution;
uniform sampler2D tex_color;

in vec2 position;
out vec4 outputColor;

vec3 gammaDecode(vec3 color, float gamma)
{
    return pow(color, vec3(gamma));
}

void main()
{
    vec2 p = position;
    p.y = 1 - p.y;
    p *= 0.5f;
    p += vec2(0.5, 0);
    vec3 c = texture(tex_color, p).rgb;
    outputColor = vec4(gammaDecode(c, 2.2f), 1.0f);
}

#version 450

uniform vec2 resolution;
uniform float time;
uniform sampler2D tex_color;

in vec2 position;
out vec4 outputColor;

const vec3 dark = vec3(0.41, 0.04, 0.00);
const vec3 light = vec3(0.97, 0.97, 0.97);

vec3 gammaDecode(vec3 color, float gamma)
{
    return pow(color, vec3(gamma));
}

void main()
{
    vec2 p = position;
    p.y *= -1;
    p += 1;
    p *= 0.5;
    p.y += cos(position.x*2+time*0.7)*0.05;

    // The picture is only a mask: its own colour is dropped.
    vec3 cf = texture(tex_color, p).rgb;
    vec3 cb = texture(tex_color, p + vec2(0,-0.004)).rgb;
    if (cf == vec3(0) && cb == vec3(0)) {
        discard;
    }
    vec3 c = cf == vec3(0) ? dark : light;
    outputColor = vec4(gammaDecode(c, 2.2f), 1.0f);
}

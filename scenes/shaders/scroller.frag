#version 450

uniform vec2 resolution;
uniform float time;
uniform sampler2D tex_color;

in vec2 position;
out vec4 outputColor;

const vec3 dark = vec3(0.57, 0.07, 0.17);
const vec2 ofs = vec2(-0.004);

vec3 gammaDecode(vec3 color, float gamma)
{
    return pow(color, vec3(gamma));
}

void main()
{
    vec2 p = position;
    p.y = 1-p.y;
    p.y *= sin(position.x*3 + time*0.3)*0.1 + 1;
    p.x = mod(p.x+time*0.3, 2)-1;
    p *= 0.5f;
    p += vec2(0.5, -0.5);
    p.y += 0.05;

    vec3 cf = texture(tex_color, p).rgb;
    vec3 cb = texture(tex_color, p + ofs).rgb;
    if (cf == vec3(0) && cb == vec3(0)) {
        discard;
    }
    vec3 c = cf == vec3(0) ? dark : cf;
    outputColor = vec4(gammaDecode(c, 2.2f), 1.0f);
}

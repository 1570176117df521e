#version 450

uniform vec2 resolution;
uniform float time;

out vec4 outputColor;

const vec3 yellow = vec3(0.865, 0.728, 0.562);
const vec3 blue = vec3(0.056, 0.072, 0.132);

vec3 gammaDecode(vec3 color, float gamma)
{
    return pow(color, vec3(gamma));
}

void main()
{
    vec2 position = gl_FragCoord.xy / resolution;
    position = (position*2)-1;
    vec3 c = mix(yellow, blue, length(position*0.3));
    outputColor = vec4(gammaDecode(c, 2.2f), 1.0f);
}

#version 450

#define LIGHTS_MAX 8

in VertOutputs
{
    vec2 vert_uv;
    vec3 vert_normal;
    vec3 vert_pos;
    vec3 tg_light_pos[LIGHTS_MAX];
    vec3 tg_frag_pos;
} vs_out;

out vec4 outputColor;

uniform bool mat_textured;
uniform bool mat_transparent;
uniform bool mat_normalmapped;
uniform bool mat_shaded;
uniform vec3 mat_color;
uniform float mat_ambient;
uniform float mat_diffuse;
uniform float mat_specular;
uniform float mat_shininess;
uniform vec3 light_diffuse[LIGHTS_MAX];
uniform vec3 light_specular[LIGHTS_MAX];
uniform sampler2D tex_color;
uniform sampler2D tex_normal;
uniform sampler2D tex_emissivity;
uniform float time;

const float gamma = 2.2;

vec3 gammaDecode(vec3 color, float gamma)
{
    return pow(color, vec3(gamma));
}

vec3 phongDiffuseSpecular(int light_i, vec3 surface_point, vec3 surface_normal, vec3 view_dir)
{
    vec3 light_dir = normalize(vs_out.tg_light_pos[light_i] - surface_point);
    float light_cos = max(dot(light_dir, surface_normal), 0.0f);
    vec3 diffuse = mat_diffuse * light_diffuse[light_i] * light_cos;

    vec3 reflect_dir = reflect(-light_dir, surface_normal);
    float reflection_cos = max(dot(reflect_dir, view_dir), 0.0f);
    vec3 specular = vec3(0.0f);
    if (light_cos > 0.0f) {
        specular = mat_specular * pow(reflection_cos, mat_shininess) * light_specular[light_i];
    }
    return diffuse + specular;
}

vec3 phongShading(vec3 color, vec3 ambient_light, vec3 surface_point, vec3 surface_normal, vec3 view_position)
{
    vec3 intensity = mat_ambient * ambient_light;
    vec3 view_dir = normalize(view_position - surface_point);
    for (int i = 0; i < LIGHTS_MAX; ++i) {
        intensity += phongDiffuseSpecular(i, surface_point, surface_normal, view_dir);
    }
    return intensity * color;
}

void main()
{
    vec3 color = mat_color;
    if (mat_textured) {
        color = vec3(texture(tex_color, vs_out.vert_uv));
    }
    color = gammaDecode(color, gamma);

    // All there is of transparency: holes where the colour is pure black.
    if (mat_transparent && color == vec3(0)) {
        discard;
    }

    vec3 emissivity = gammaDecode(vec3(texture(tex_emissivity, vs_out.vert_uv)), gamma);

    // Bursts of two thirds of a second in which the picture is torn sideways. Where the map is black it stays so.
    float move = 0;
    float fuzz = 0;
    if (mod(time*1.5, 2) > 1) {
        move = 0.01;
        fuzz = 0.01+sin(time*3)*0.1;
    }
    vec2 p = vs_out.vert_uv+fract(sin(vs_out.vert_uv.x*vs_out.vert_uv.y*time*8831))*fuzz*vec2(1,0);
    vec3 emi = gammaDecode(vec3(texture(tex_emissivity, p)), gamma);
    if (emissivity != vec3(0)) {
        emissivity = emi;
    }

    vec3 normal = vec3(0, 0, 1);
    if (mat_normalmapped) {
        normal = normalize(vec3(texture(tex_normal, vs_out.vert_uv) * 2.0f) - 1.0f);
    }

    vec3 ambient_light = vec3(0.1);
    vec3 result = color + emissivity;
    if (mat_shaded) {
        result = phongShading(color, ambient_light, vs_out.tg_frag_pos, normal, vec3(0)) + emissivity;
    }
    outputColor = vec4(result, 1.0f);
}
